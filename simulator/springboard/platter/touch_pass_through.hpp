// Views that are there for what they hold: a touch that none of their subviews takes goes to what lies beneath.
#pragma once

#include "platform/ui_view.hpp"

class SBFTouchPassThroughView : public objc::Interface<"SBFTouchPassThroughView", UIView> {};

namespace springboard {

// The implementation of -pointInside:withEvent: for such a view. It reaches beyond the view's own bounds.
bool isInsideSubview(UIView* self, CGPoint point, NSObject* event);

void defineTouchThroughView();

}  // namespace springboard
