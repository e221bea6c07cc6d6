// The colors of notification cards in the light or dark appearance of a view. Autoreleased. Main thread.
#pragma once

#include "platform/ui_view.hpp"

namespace springboard {

UIColor* textColor(const UIView* view);
UIColor* secondaryTextColor(const UIView* view);
// For an opaque card and for the header at its top.
UIColor* cardColor(const UIView* view);
UIColor* cardHeaderColor(const UIView* view);
// For a touched row of an opaque card, and for the line between two rows.
UIColor* pressedRowColor(const UIView* view);
UIColor* separatorColor(const UIView* view);

}  // namespace springboard
