// The first responder: the object of a window that receives text input. Main thread only.
#pragma once

#include "platform/ui_view.hpp"

namespace uikit {

// Returns the window of the first view in the responder chain that starts at this responder. Returns nil if the chain
// contains no view.
UIWindow* windowOfResponder(const UIResponder* responder);
// Makes the first responder resign if it is `leaving` or inside it. Call this before `leaving` is removed from its
// window.
void resignFirstResponderInside(UIView* leaving);

}  // namespace uikit
