// The colors of notification cards in the light or dark appearance of a view. Autoreleased. Main thread.
#pragma once

#include "platform/ui_view.hpp"

namespace springboard {

UIColor* textColor(const UIView* view);
UIColor* secondaryTextColor(const UIView* view);
// The colors of an opaque card and of its header.
UIColor* cardColor(const UIView* view);
UIColor* cardHeaderColor(const UIView* view);
// The colors of a touched row of an opaque card and of the line between two rows.
UIColor* pressedRowColor(const UIView* view);
UIColor* separatorColor(const UIView* view);

}  // namespace springboard
