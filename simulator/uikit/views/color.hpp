// The values of UIColor and CGColor, and the default colors of an appearance. Components are from 0 to 1. Main thread
// only.
#pragma once

#include "platform/ui_color.hpp"
#include "platform/ui_trait_collection.hpp"
#include "simulator/drawing/geometry.hpp"

// The target of a CGColorRef. It is valid as long as the UIColor or CALayer that returned it. Copy the value in order
// to store it.
struct CGColor {
  drawing::Color color;
};

namespace uikit {

// The value of the color; transparent black for nil.
drawing::Color colorOf(const UIColor* color);
objc::Ref<UIColor> makeColor(const drawing::Color& color);

// The default colors of text, of the placeholder of an empty text field, and of interactive elements.
UIColor* labelColor(UIUserInterfaceStyle style);
UIColor* placeholderTextColor(UIUserInterfaceStyle style);
UIColor* tintColor(UIUserInterfaceStyle style);

}  // namespace uikit
