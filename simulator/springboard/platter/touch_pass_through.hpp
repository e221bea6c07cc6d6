// Container views that pass touches through: a touch outside all subviews goes to the view behind the container.
#pragma once

#include "platform/ui_view.hpp"

class SBFTouchPassThroughView : public objc::Interface<"SBFTouchPassThroughView", UIView> {};

namespace springboard {

// The implementation of -pointInside:withEvent: for a container view. It accepts touches on subviews, including
// subviews outside the bounds of the container. Main thread.
bool isInsideSubview(UIView* self, CGPoint point, NSObject* event);

void defineTouchPassThroughView();

}  // namespace springboard
