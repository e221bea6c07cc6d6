// The platform's gestures on a banner. A tap opens the application, an upward drag dismisses the banner, and a downward
// drag opens its long look. Main thread.
#pragma once

#include "platform/nc_notification_view_controller.hpp"

namespace springboard {

// Adds recognizers that send _handleTapOnView: and _handlePanOnView: to the controller. Use this for banners.
void addBannerGestures(NCNotificationShortLookViewController* controller, UIView* view);
// Adds only the tap recognizer. Use this for a short look in the list.
void addTap(NCNotificationShortLookViewController* controller, UIView* view);

// The implementation of the method -_handlePanOnView:.
void handlePan(NCNotificationShortLookViewController* controller, UIPanGestureRecognizer* recognizer);

}  // namespace springboard
