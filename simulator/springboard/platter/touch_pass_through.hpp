// Container views that pass touches through: a touch outside all subviews goes to the view behind the container.
#pragma once

#include "platform/ui_view.hpp"

class SBFTouchPassThroughView : public objc::Interface<"SBFTouchPassThroughView", UIView> {};

namespace springboard {

// The implementation of -pointInside:withEvent: for such a view. It also accepts touches on subviews outside the view's
// bounds. Main thread.
bool isInsideSubview(UIView* self, CGPoint point, NSObject* event);

void defineTouchPassThroughView();

}  // namespace springboard
