#include "simulator/uikit/views/view_controller.hpp"

#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "simulator/uikit/views/class_definitions.hpp"
#include "simulator/uikit/views/view_hierarchy.hpp"

ViewControllerState::~ViewControllerState() {
  if (view != nullptr) uikit::record(view.get()).viewController = nullptr;
  for (const objc::Ref<UIViewController>& child : children) objc::state(child.get()).parent = nullptr;
  if (presented != nullptr) objc::state(presented.get()).presenting = nullptr;
}

namespace uikit {

namespace {

void setView(UIViewController* self, UIView* view) {
  objc::Ref<UIView>& current = objc::state(self).view;
  if (current.get() == view) return;
  if (current != nullptr) record(current.get()).viewController = nullptr;
  current = objc::retain(view);
  if (view != nullptr) record(view).viewController = self;
}

void loadView(UIViewController* self) { setView(self, UIView::withFrame<UIView>({{}, environment().device.screen})); }

UIView* view(UIViewController* self) {
  if (objc::state(self).view == nullptr) {
    objc::send<void, "loadView">(self);
    if (objc::state(self).view != nullptr) objc::send<void, "viewDidLoad">(self);
  }
  return objc::state(self).view;
}

UIView* viewIfLoaded(UIViewController* self) { return objc::state(self).view; }
bool isViewLoaded(UIViewController* self) { return objc::state(self).view != nullptr; }

UIResponder* nextResponder(UIViewController* self) {
  const ViewControllerState& state = objc::state(self);
  UIView* superview = state.view == nullptr ? nullptr : record(state.view.get()).superview;
  if (superview != nullptr) return superview;
  return state.parent;
}

UIViewController* parentViewController(UIViewController* self) { return objc::state(self).parent; }

NSArray* childViewControllers(UIViewController* self) {
  NSMutableArray* copy = NSMutableArray::array();
  for (const objc::Ref<UIViewController>& child : objc::state(self).children) copy->addObject(child.get());
  return copy;
}

void removeFromParent(UIViewController* self) {
  UIViewController* parent = objc::state(self).parent;
  if (parent == nullptr) return;
  const objc::Ref<UIViewController> retained = objc::retain(self);
  std::erase_if(objc::state(parent).children,
                [self](const objc::Ref<UIViewController>& child) { return child.get() == self; });
  objc::state(self).parent = nullptr;
  objc::send<void, "didMoveToParentViewController:">(self, static_cast<UIViewController*>(nullptr));
}

// Adds a child. The caller must send didMoveToParentViewController: to the child when the transition ends.
void addChild(UIViewController* self, UIViewController* child) {
  if (child == nullptr || child == self || objc::state(child).parent == self) return;
  const objc::Ref<UIViewController> retained = objc::retain(child);
  objc::send<void, "removeFromParentViewController">(child);
  objc::send<void, "willMoveToParentViewController:">(child, self);
  objc::state(self).children.push_back(retained);
  objc::state(child).parent = self;
}

using Completion = objc::Block<void()>*;

void callLater(Completion completion) {
  if (completion == nullptr) return;
  foundation::onMainThread([block = objc::BlockRef<void()>(completion)] { (*block.get())(); });
}

UIViewController* presentedViewController(UIViewController* self) { return objc::state(self).presented; }
UIViewController* presentingViewController(UIViewController* self) { return objc::state(self).presenting; }

// Presents a controller. Its view covers the window immediately, without a transition.
void present(UIViewController* self, UIViewController* presented, bool, Completion completion) {
  ViewControllerState& state = objc::state(self);
  if (presented == nullptr || state.presented != nullptr) return;
  state.presented = objc::retain(presented);
  objc::state(presented).presenting = self;
  if (UIWindow* window = windowOf(self->view())) {
    presented->view()->setFrame(window->bounds());
    presented->view()->setAutoresizingMask(UIViewAutoresizingFlexibleSize);
    window->addSubview(presented->view());
  }
  callLater(completion);
}

// Dismisses the controller that this controller presents. If it presents none, dismisses this controller itself.
void dismiss(UIViewController* self, bool animated, Completion completion) {
  ViewControllerState& state = objc::state(self);
  if (state.presented == nullptr) {
    objc::send<void, "dismissViewControllerAnimated:completion:">(state.presenting, animated, completion);
    return;
  }
  const objc::Ref<UIViewController> presented = std::move(state.presented);
  objc::state(presented.get()).presenting = nullptr;
  if (objc::state(presented.get()).view != nullptr) presented->view()->removeFromSuperview();
  callLater(completion);
}

UITraitCollection* traits(UIViewController* self) { return traitCollection(styleOf(self)); }
UIUserInterfaceStyle overrideStyle(UIViewController* self) { return objc::state(self).overrideStyle; }
void setOverrideStyle(UIViewController* self, UIUserInterfaceStyle style) {
  changeTraitsOf(objc::state(self).view, [&] { objc::state(self).overrideStyle = style; });
}

// These functions implement methods that do nothing until a subclass overrides them.
void ignore(UIViewController*) {}
void ignoreFlag(UIViewController*, bool) {}
void ignoreController(UIViewController*, UIViewController*) {}
void ignoreTraits(UIViewController*, UITraitCollection*) {}

}  // namespace

void defineViewController() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"view", &view>(),
      objc::method<"setView:", &setView>(),
      objc::method<"loadView", &loadView>(),
      objc::method<"viewIfLoaded", &viewIfLoaded>(),
      objc::method<"isViewLoaded", &isViewLoaded>(),
      objc::method<"viewDidLoad", &ignore>(),
      objc::method<"viewWillAppear:", &ignoreFlag>(),
      objc::method<"viewDidAppear:", &ignoreFlag>(),
      objc::method<"viewWillDisappear:", &ignoreFlag>(),
      objc::method<"viewDidDisappear:", &ignoreFlag>(),
      objc::method<"viewWillLayoutSubviews", &ignore>(),
      objc::method<"viewDidLayoutSubviews", &ignore>(),
      objc::method<"nextResponder", &nextResponder>(),
      objc::method<"parentViewController", &parentViewController>(),
      objc::method<"childViewControllers", &childViewControllers>(),
      objc::method<"addChildViewController:", &addChild>(),
      objc::method<"removeFromParentViewController", &removeFromParent>(),
      objc::method<"willMoveToParentViewController:", &ignoreController>(),
      objc::method<"didMoveToParentViewController:", &ignoreController>(),
      objc::method<"presentedViewController", &presentedViewController>(),
      objc::method<"presentingViewController", &presentingViewController>(),
      objc::method<"presentViewController:animated:completion:", &present>(),
      objc::method<"dismissViewControllerAnimated:completion:", &dismiss>(),
      objc::method<"traitCollection", &traits>(),
      objc::method<"traitCollectionDidChange:", &ignoreTraits>(),
      objc::method<"overrideUserInterfaceStyle", &overrideStyle>(),
      objc::method<"setOverrideUserInterfaceStyle:", &setOverrideStyle>(),
  };
  objc::defineClassWithState<UIViewController>(methods);
}

}  // namespace uikit
