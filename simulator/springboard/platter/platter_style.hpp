// The style of notification cards: their shape, and their colors, which depend on the appearance of a view. Lengths are
// in points. The colors are autoreleased. Main thread.
#pragma once

#include "platform/ui_view.hpp"

namespace springboard {

inline constexpr CGFloat cardCornerRadius = 13;

// Rounds the view's corners and clips its subviews to them.
void applyCardShape(UIView* view);

UIColor* textColor(const UIView* view);
UIColor* secondaryTextColor(const UIView* view);
// Return the colors of an opaque card and of its header.
UIColor* cardColor(const UIView* view);
UIColor* cardHeaderColor(const UIView* view);
// Return the color of a touched row on an opaque card, and the color of the line between two rows.
UIColor* pressedRowColor(const UIView* view);
UIColor* separatorColor(const UIView* view);

}  // namespace springboard
