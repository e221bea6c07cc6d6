// The colors and distances of the Settings application's pages. Lengths are in points. Main thread.
#pragma once

#include "platform/ui_label.hpp"
#include "simulator/drawing/geometry.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"

namespace settings_application {

enum class PageColor { Background, Card, Highlight, Separator, SecondaryText, Accessory };

// Returns the color in the appearance of the view.
drawing::Color pageColor(PageColor color, const UIView* view);

inline constexpr CGFloat cardMargin = 16;
inline constexpr CGFloat cardCornerRadius = 10;
inline constexpr CGFloat textMargin = 16;
inline constexpr CGFloat barHeight = 44;
inline constexpr CGFloat textFontSize = 17;
inline constexpr CGFloat noteFontSize = 13;

// Creates an empty label that has any number of lines and receives no touches.
objc::Ref<UILabel> makeLabel(CGFloat fontSize);

// Returns the height of the label's text at this width, rounded up to a whole number; 0 if there is no text.
CGFloat heightOfLabel(const UILabel* label, CGFloat width);
// Returns the width of the label's text in one line.
CGFloat widthOfLabel(const UILabel* label);

}  // namespace settings_application
