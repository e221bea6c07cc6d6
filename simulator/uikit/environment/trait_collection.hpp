// UITraitCollection and the traits of views. A trait collection consists of the user interface style only. Main thread
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
// The style of a view or view controller: the override of the nearest controller, or else the style of the system. A
// nil view has the style of the system; a controller must not be nil.
UIUserInterfaceStyle styleOf(const UIView* view);
UIUserInterfaceStyle styleOf(const UIViewController* controller);

// Runs a change that can affect the traits of the views inside this view (or inside any window). Then sends
// traitCollectionDidChange: to each view controller and view whose style has changed, superviews first. The view can be
// nil.
void changeTraitsOf(UIView* view, const std::function<void()>& change);
void changeTraitsOfAllWindows(const std::function<void()>& change);

}  // namespace uikit
