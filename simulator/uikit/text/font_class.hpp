// UIFont: the conversion between the platform's fonts and drawing fonts.
#pragma once

#include "platform/ui_font.hpp"
#include "simulator/drawing/font.hpp"

namespace uikit {

// The value of the font. For nil, the default font of text: the system font at 17 points.
drawing::Font fontOf(const UIFont* font);
objc::Ref<UIFont> makeFont(const drawing::Font& font);

// In points.
inline constexpr CGFloat labelFontSize = 17;

void defineFont();

}  // namespace uikit
