// The colors of notifications' cards, in the appearance that a view is shown in. Autoreleased.
#pragma once

#include "platform/ui_view.hpp"

namespace springboard {

UIColor* textColor(const UIView* view);
UIColor* secondaryTextColor(const UIView* view);
// Of a card that covers what lies behind it, and of the strip at its top.
UIColor* cardColor(const UIView* view);
UIColor* cardHeaderColor(const UIView* view);
// Of a row of such a card while a finger is on it, and between two rows.
UIColor* pressedRowColor(const UIView* view);
UIColor* separatorColor(const UIView* view);

}  // namespace springboard
