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

UIUserInterfaceStyle styleAround(const UIViewController* controller) {
  const ViewControllerState& state = objc::state(controller);
  if (state.view != nullptr && record(state.view.get()).superview != nullptr)
    return styleOf(record(state.view.get()).superview);
  return state.parent == nullptr ? environment().style : styleOf(state.parent);
}

}  // namespace

UIUserInterfaceStyle styleOf(const UIViewController* controller) {
  const UIUserInterfaceStyle override = objc::state(controller).overrideStyle;
  return override == UIUserInterfaceStyle::Unspecified ? styleAround(controller) : override;
}

UIUserInterfaceStyle styleOf(const UIView* view) {
  for (; view != nullptr; view = record(view).superview)
    if (record(view).viewController != nullptr) return styleOf(record(view).viewController);
  return environment().style;
}

namespace {

// Someone with traits, and what they were.
struct Witness {
  objc::Ref<UIResponder> object;
  UIUserInterfaceStyle style;
};

UIUserInterfaceStyle styleOfWitness(UIResponder* object) {
  if (const UIViewController* controller = objc::as<UIViewController>(object)) return styleOf(controller);
  return styleOf(static_cast<UIView*>(object));
}

void addWitnesses(UIView* root, std::vector<Witness>& witnesses) {
  visitTree(root, [&](UIView* view) {
    if (UIViewController* controller = record(view).viewController)
      witnesses.push_back({objc::retain<UIResponder>(controller), styleOf(controller)});
    witnesses.push_back({objc::retain<UIResponder>(view), styleOf(view)});
  });
}

// Also views that are not told anything look different: default colors and blurs follow the appearance.
void tellChanges(const std::vector<Witness>& witnesses) {
  noteNewLook();
  for (const Witness& witness : witnesses)
    if (styleOfWitness(witness.object) != witness.style)
      objc::send<void, "traitCollectionDidChange:">(witness.object.get(), traitCollection(witness.style));
}

}  // namespace

void changeTraitsOf(UIView* view, const std::function<void()>& change) {
  std::vector<Witness> witnesses;
  if (view != nullptr) addWitnesses(view, witnesses);
  change();
  tellChanges(witnesses);
}

void changeTraitsOfEverything(const std::function<void()>& change) {
  std::vector<Witness> witnesses;
  for (UIWindow* window : allWindows()) addWitnesses(window, witnesses);
  change();
  tellChanges(witnesses);
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

// For subclasses.
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
