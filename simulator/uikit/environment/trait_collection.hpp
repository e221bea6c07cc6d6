// UITraitCollection: made for an appearance, equal when of the same.
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

// Autoreleased.
UITraitCollection* traitCollection(UIUserInterfaceStyle style);
// The appearance that a view, or a controller, is shown in.
UIUserInterfaceStyle styleOf(const UIView* view);
UIUserInterfaceStyle styleOf(const UIViewController* controller);

// Makes a change that may alter the traits of what is in this view, or in any window, and sends
// traitCollectionDidChange: to each controller and view whose appearance it altered, outer ones first.
void changeTraitsOf(UIView* view, const std::function<void()>& change);
void changeTraitsOfEverything(const std::function<void()>& change);

}  // namespace uikit
