// The first responder: the object of a window that receives text input. Main thread only.
#pragma once

#include "platform/ui_view.hpp"

namespace uikit {

// Searches the responder chain that starts at this responder for a view, and returns the window of the first one.
// Returns nil if there is no view.
UIWindow* windowOfResponder(const UIResponder* responder);
// Makes the first responder resign if it is `leaving` or inside it. Call this before `leaving` is removed from its
// window.
void resignFirstResponderInside(UIView* leaving);

}  // namespace uikit
