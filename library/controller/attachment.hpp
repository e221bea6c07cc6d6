// Replaces the platform's content of a presented notification by a banner. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

// Hook. The notification view was added to a superview or removed from it.
void notificationViewDidMove(objc::Original<void(NCNotificationViewControllerView*)> original,
                             NCNotificationViewControllerView* self);
