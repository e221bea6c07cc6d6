// The first responder: which object of a window typed text goes to.
#pragma once

#include "platform/ui_view.hpp"

namespace uikit {

// The window at the end of the responder's chain, nil without one.
UIWindow* windowOfResponder(const UIResponder* responder);
// Before the view leaves its window.
void resignFirstResponderInside(UIView* leaving);

}  // namespace uikit
