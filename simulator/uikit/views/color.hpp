// UIColor's value, and the colors that follow the appearance.
#pragma once

#include "platform/ui_color.hpp"
#include "platform/ui_trait_collection.hpp"
#include "simulator/drawing/geometry.hpp"

namespace uikit {

// Transparent for nil.
drawing::Color colorOf(const UIColor* color);
objc::Ref<UIColor> makeColor(const drawing::Color& color);

// Of texts, of the words in an empty field, and of what can be touched.
UIColor* labelColor(UIUserInterfaceStyle style);
UIColor* placeholderTextColor(UIUserInterfaceStyle style);
UIColor* tintColor(UIUserInterfaceStyle style);

}  // namespace uikit
