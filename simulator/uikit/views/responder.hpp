// The first responder: the object of a window that receives text input. Main thread only.
#pragma once

#include "platform/ui_view.hpp"

namespace uikit {

// The window of the first view in the responder chain that starts at this responder; nil if there is none.
UIWindow* windowOfResponder(const UIResponder* responder);
// Makes the first responder resign if it is inside this view. Call this before the view is removed from its window.
void resignFirstResponderInside(UIView* leaving);

}  // namespace uikit
