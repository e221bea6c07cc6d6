// UIFont's value.
#pragma once

#include "platform/ui_font.hpp"
#include "simulator/drawing/font.hpp"

namespace uikit {

// The default font of texts, the system's at 17 points, for nil.
drawing::Font fontOf(const UIFont* font);
objc::Ref<UIFont> makeFont(const drawing::Font& font);

inline constexpr CGFloat labelFontSize = 17;

void defineFont();

}  // namespace uikit
