#include "simulator/uikit/environment/trait_collection.hpp"

#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/views/class_definitions.hpp"
#include "simulator/uikit/views/view_categories.hpp"
#include "simulator/uikit/views/view_controller.hpp"
#include "simulator/uikit/views/view_hierarchy.hpp"
#include "simulator/uikit/views/window.hpp"

namespace uikit {

UITraitCollection* traitCollection(UIUserInterfaceStyle style) {
  auto made = objc::make<UITraitCollection>();
  objc::state(made.get()).style = style;
  return objc::autorelease(std::move(made));
}

namespace {

UIUserInterfaceStyle inheritedStyle(const UIViewController* controller) {
  const ViewControllerState& state = objc::state(controller);
  if (state.view != nullptr && record(state.view.get()).superview != nullptr)
    return styleOf(record(state.view.get()).superview);
  return state.parent == nullptr ? environment().style : styleOf(state.parent);
}

}  // namespace

UIUserInterfaceStyle styleOf(const UIViewController* controller) {
  const UIUserInterfaceStyle override = objc::state(controller).overrideStyle;
  return override == UIUserInterfaceStyle::Unspecified ? inheritedStyle(controller) : override;
}

UIUserInterfaceStyle styleOf(const UIView* view) {
  for (; view != nullptr; view = record(view).superview)
    if (record(view).viewController != nullptr) return styleOf(record(view).viewController);
  return environment().style;
}

namespace {

// A view or view controller and its style before a change.
struct TraitSnapshot {
  objc::Ref<UIResponder> object;
  UIUserInterfaceStyle style;
};

UIUserInterfaceStyle currentStyle(UIResponder* object) {
  if (const UIViewController* controller = objc::as<UIViewController>(object)) return styleOf(controller);
  return styleOf(static_cast<UIView*>(object));
}

void addSnapshots(UIView* root, std::vector<TraitSnapshot>& snapshots) {
  visitTree(root, [&](UIView* view) {
    if (UIViewController* controller = record(view).viewController)
      snapshots.push_back({objc::retain<UIResponder>(controller), styleOf(controller)});
    snapshots.push_back({objc::retain<UIResponder>(view), styleOf(view)});
  });
}

// Invalidates the whole screen, because default colors and blurs depend on the appearance, even in views that do not
// implement traitCollectionDidChange:.
void sendTraitChanges(const std::vector<TraitSnapshot>& snapshots) {
  invalidateScreen();
  for (const TraitSnapshot& snapshot : snapshots)
    if (currentStyle(snapshot.object) != snapshot.style)
      objc::send<void, "traitCollectionDidChange:">(snapshot.object.get(), traitCollection(snapshot.style));
}

}  // namespace

void changeTraitsOf(UIView* view, const std::function<void()>& change) {
  std::vector<TraitSnapshot> snapshots;
  if (view != nullptr) addSnapshots(view, snapshots);
  change();
  sendTraitChanges(snapshots);
}

void changeTraitsOfAllWindows(const std::function<void()>& change) {
  std::vector<TraitSnapshot> snapshots;
  for (UIWindow* window : allWindows()) addSnapshots(window, snapshots);
  change();
  sendTraitChanges(snapshots);
}

namespace {

UIUserInterfaceStyle userInterfaceStyle(UITraitCollection* self) { return objc::state(self).style; }

UITraitCollection* withStyle(Class, UIUserInterfaceStyle style) { return traitCollection(style); }

bool isEqual(UITraitCollection* self, NSObject* other) {
  const UITraitCollection* traits = objc::as<UITraitCollection>(other);
  return traits != nullptr && objc::state(traits).style == objc::state(self).style;
}
NSUInteger hash(UITraitCollection* self) { return static_cast<NSUInteger>(objc::state(self).style); }

UITraitCollection* traitsOfView(UIView* self) { return traitCollection(styleOf(self)); }

// The default implementation does nothing. Subclasses override this method.
void traitCollectionDidChange(UIView*, UITraitCollection*) {}

}  // namespace

std::span<const objc::MethodEntry> viewTraitMethods() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"traitCollection", &traitsOfView>(),
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
  };
  return methods;
}

void defineTraitCollection() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"userInterfaceStyle", &userInterfaceStyle>(),
      objc::classMethod<"traitCollectionWithUserInterfaceStyle:", &withStyle>(),
      objc::method<"isEqual:", &isEqual>(),
      objc::method<"hash", &hash>(),
  };
  objc::defineClassWithState<UITraitCollection>(methods);
}

}  // namespace uikit
