// The platform's own gestures on a banner: a tap opens it, a pull moves it, up and away or down to its long look.
#pragma once

#include "platform/nc_notification_view_controller.hpp"

namespace springboard {

// Recognizers that send _handlePanOnView: and, as for every short look, _handleTapOnView: to the controller.
void addBannerGestures(NCNotificationShortLookViewController* controller, UIView* view);
void addTap(NCNotificationShortLookViewController* controller, UIView* view);

// The implementation of -_handlePanOnView:.
void handlePan(NCNotificationShortLookViewController* controller, UIPanGestureRecognizer* recognizer);

}  // namespace springboard
