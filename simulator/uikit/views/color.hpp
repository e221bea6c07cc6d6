// The values of UIColor and CGColor, and the default colors of an appearance. Components are from 0 to 1. Main thread
// only.
#pragma once

#include "platform/ui_color.hpp"
#include "platform/ui_trait_collection.hpp"
#include "simulator/drawing/geometry.hpp"

// The object to which a CGColorRef points. It is valid as long as the UIColor or CALayer that returned it. Copy the
// object if you store it.
struct CGColor {
  drawing::Color color;
};

namespace uikit {

// Returns the value of the color. nil becomes transparent black.
drawing::Color colorOf(const UIColor* color);
objc::Ref<UIColor> makeColor(const drawing::Color& color);

// Return the default colors of text, of placeholders in empty text fields, and of interactive elements.
UIColor* labelColor(UIUserInterfaceStyle style);
UIColor* placeholderTextColor(UIUserInterfaceStyle style);
UIColor* tintColor(UIUserInterfaceStyle style);

}  // namespace uikit
