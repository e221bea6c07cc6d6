// UITraitCollection, and the traits of views. A trait collection contains only the user interface style. Main thread
// only.
#pragma once

#include <functional>

#include "objc/class_definition.hpp"
#include "platform/ui_trait_collection.hpp"
#include "platform/ui_view_controller.hpp"

struct TraitCollectionState {
  UIUserInterfaceStyle style = UIUserInterfaceStyle::Unspecified;
};
template <>
struct objc::StateOf<UITraitCollection> {
  using Type = TraitCollectionState;
};

namespace uikit {

// Returns an autoreleased trait collection with this style.
UITraitCollection* traitCollection(UIUserInterfaceStyle style);
// Returns the style of a view or view controller: the style override of the nearest view controller that has one, or
// the style of the system if none has one. A nil view has the style of the system. A controller must not be nil.
UIUserInterfaceStyle styleOf(const UIView* view);
UIUserInterfaceStyle styleOf(const UIViewController* controller);

// Runs a change that can affect the traits of views inside this view. Then sends traitCollectionDidChange: to each view
// controller and view whose style has changed, superviews first. If the view is nil, the change can affect all windows.
void changeTraitsOf(UIView* view, const std::function<void()>& change);
void changeTraitsOfAllWindows(const std::function<void()>& change);

}  // namespace uikit
