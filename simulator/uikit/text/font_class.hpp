// UIFont, and the conversion of UIFont objects to drawing fonts. Main thread only.
#pragma once

#include "platform/ui_font.hpp"
#include "simulator/drawing/font.hpp"

namespace uikit {

// Converts the font. nil becomes the default text font, which is the system font at 17 points.
drawing::Font fontOf(const UIFont* font);
objc::Ref<UIFont> makeFont(const drawing::Font& font);

// The default font size of text, in points.
inline constexpr CGFloat labelFontSize = 17;

void defineFont();

}  // namespace uikit
