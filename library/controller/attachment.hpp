// Replaces the platform's content of a presented notification with a banner. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

// Hook. The platform calls it after the notification view has been added to a superview or removed from it. If the view
// is in the banner window and has no banner, attaches a banner.
void notificationViewDidMove(objc::Original<void(NCNotificationViewControllerView*)> original,
                             NCNotificationViewControllerView* self);
