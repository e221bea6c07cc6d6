#include "simulator/uikit/views/window.hpp"

#include <algorithm>

#include "simulator/uikit/layout/view_layout.hpp"
#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/views/class_definitions.hpp"
#include "simulator/uikit/views/view_hierarchy.hpp"

namespace uikit {

namespace {

// All windows, in the order in which they were last shown. They are borrowed.
std::vector<UIWindow*>& windows() {
  static std::vector<UIWindow*> instance;
  return instance;
}

UIWindow*& currentKeyWindow() {
  static UIWindow* instance = nullptr;
  return instance;
}

objc::Ref<UIApplication>& currentApplication() {
  static objc::Ref<UIApplication> instance;
  return instance;
}

bool isVisible(const UIWindow* window) { return !record(window).layer.hidden; }

}  // namespace

const std::vector<UIWindow*>& allWindows() { return windows(); }
UIWindow* keyWindow() { return currentKeyWindow(); }

std::vector<UIWindow*> visibleWindows() {
  std::vector<UIWindow*> visible;
  std::ranges::copy_if(windows(), std::back_inserter(visible), isVisible);
  std::ranges::stable_sort(visible, {}, [](const UIWindow* window) { return objc::state(window).level; });
  return visible;
}

std::vector<UIWindow*> visibleWindows(const Screen& screen) {
  std::vector<UIWindow*> visible = visibleWindows();
  std::erase_if(visible, [&screen](const UIWindow* window) { return &screenOf(window) != &screen; });
  return visible;
}

const Screen& screenOf(const UIWindow* window) {
  const Screen* screen = objc::state(window).screen;
  return screen == nullptr ? mainScreen() : *screen;
}

void setScreen(UIWindow* window, const Screen& screen) {
  objc::state(window).screen = &screen;
  noteDisplayChange();
}

UIResponder* firstResponder() { return keyWindow() == nullptr ? nullptr : objc::state(keyWindow()).firstResponder; }

void setSharedApplication(UIApplication* application) { currentApplication() = objc::retain(application); }

// Lays out the windows if the display has changed since the last layout. Each change that requires a layout is also a
// display change.
void layoutWindows() {
  static std::uint64_t laidOut = 0;
  if (laidOut == displayChanges()) return;
  for (UIWindow* window : visibleWindows()) layoutIfNeeded(window);
  laidOut = displayChanges();
}

namespace {

void resignKey(UIWindow* window) {
  if (currentKeyWindow() != window) return;
  currentKeyWindow() = nullptr;
  objc::send<void, "resignKeyWindow">(window);
}

void show(UIWindow* self) {
  setHidden(record(self).layer, false);
  std::erase(windows(), self);
  windows().push_back(self);
  noteDisplayChange();
}

UIWindow* initWithFrame(UIWindow* self, CGRect frame) {
  auto* made = objc::sendSuper<"UIWindow", UIWindow*, "initWithFrame:">(self, frame);
  if (made == nullptr) return nullptr;
  record(made).layer.hidden = true;
  objc::state(made).window = made;
  windows().push_back(made);
  return made;
}

UIWindow* init(UIWindow* self) { return objc::send<UIWindow*, "initWithFrame:">(self, CGRect{{}, mainScreen().size}); }

void setWindowHidden(UIWindow* self, bool hidden) {
  if (!hidden && !isVisible(self)) return show(self);
  setHidden(record(self).layer, hidden);
  if (hidden) resignKey(self);
}

double windowLevel(UIWindow* self) { return objc::state(self).level; }
void setWindowLevel(UIWindow* self, double level) {
  objc::state(self).level = level;
  noteDisplayChange();
}

UIViewController* rootViewController(UIWindow* self) { return objc::state(self).rootViewController; }

void setRootViewController(UIWindow* self, UIViewController* controller) {
  objc::Ref<UIViewController>& current = objc::state(self).rootViewController;
  if (current.get() == controller) return;
  if (current != nullptr) current->view()->removeFromSuperview();
  current = objc::retain(controller);
  if (controller == nullptr) return;
  UIView* view = controller->view();
  view->setFrame(self->bounds());
  view->setAutoresizingMask(UIViewAutoresizingFlexibleSize);
  insertSubview(self, view, 0);
}

bool isKeyWindow(UIWindow* self) { return keyWindow() == self; }
bool canBecomeKeyWindow(UIWindow*) { return true; }

void makeKeyWindow(UIWindow* self) {
  if (keyWindow() == self || !objc::send<bool, "_canBecomeKeyWindow">(self)) return;
  if (keyWindow() != nullptr) resignKey(keyWindow());
  currentKeyWindow() = self;
  objc::send<void, "becomeKeyWindow">(self);
}

void makeKeyAndVisible(UIWindow* self) {
  show(self);
  objc::send<void, "makeKeyWindow">(self);
}

UIResponder* nextResponder(UIWindow*) { return currentApplication(); }

// The default implementation does nothing. Subclasses override this method.
void ignore(UIWindow*) {}

UIApplication* sharedApplication(Class) { return currentApplication(); }
UIWindow* keyWindowOfApplication(UIApplication*) { return keyWindow(); }

NSArray* windowsOfApplication(UIApplication*) {
  NSMutableArray* visible = NSMutableArray::array();
  for (const UIWindow* window : visibleWindows()) visible->addObject(window);
  return visible;
}

}  // namespace

void defineWindow() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"init", &init>(),
      objc::method<"initWithFrame:", &initWithFrame>(),
      objc::method<"setHidden:", &setWindowHidden>(),
      objc::method<"windowLevel", &windowLevel>(),
      objc::method<"setWindowLevel:", &setWindowLevel>(),
      objc::method<"rootViewController", &rootViewController>(),
      objc::method<"setRootViewController:", &setRootViewController>(),
      objc::method<"isKeyWindow", &isKeyWindow>(),
      objc::method<"_canBecomeKeyWindow", &canBecomeKeyWindow>(),
      objc::method<"makeKeyWindow", &makeKeyWindow>(),
      objc::method<"makeKeyAndVisible", &makeKeyAndVisible>(),
      objc::method<"becomeKeyWindow", &ignore>(),
      objc::method<"resignKeyWindow", &ignore>(),
      objc::method<"nextResponder", &nextResponder>(),
  };
  objc::defineClassWithState<UIWindow>(methods);
}

void defineApplication() {
  static constexpr objc::MethodEntry methods[] = {
      objc::classMethod<"sharedApplication", &sharedApplication>(),
      objc::method<"keyWindow", &keyWindowOfApplication>(),
      objc::method<"windows", &windowsOfApplication>(),
  };
  objc::defineClass<UIApplication>(methods);
}

}  // namespace uikit

WindowState::~WindowState() {
  if (window == nullptr) return;
  std::erase(uikit::windows(), window);
  if (uikit::currentKeyWindow() == window) uikit::currentKeyWindow() = nullptr;
  uikit::noteDisplayChange();
}
