// The platform's own gestures on a banner: a tap opens it, a pull moves it, up and away or down to its long look.
#pragma once

#include "platform/nc_notification_view_controller.hpp"

namespace springboard {

// Recognisers that send _handleTapOnView: and _handlePanOnView: to the controller.
void addGestures(NCNotificationShortLookViewController* controller, UIView* view);

// The implementation of -_handlePanOnView:.
void handlePan(NCNotificationShortLookViewController* controller, UIPanGestureRecognizer* recognizer);

}  // namespace springboard
