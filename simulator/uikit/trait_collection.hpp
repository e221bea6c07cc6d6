// UITraitCollection: made for an appearance, equal when of the same.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/ui_trait_collection.hpp"
#include "platform/ui_view.hpp"

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
// The appearance that a view is shown in.
UIUserInterfaceStyle styleOf(const UIView* view);

}  // namespace uikit
