// Appends the text of a newer notification to a banner that must stay, instead of replacing the banner. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

// Hook. If a banner must stay, does not present another notification over it, and calls attemptUpdateReply instead.
void presentViewController(
    objc::Original<void(NotificationController*, UIViewController*, bool, objc::Block<void()>*)> original,
    NotificationController* self, UIViewController* presented, bool animated, objc::Block<void()>* completion);
// Appends the body of the notification in the view to the banner with the same header, and executes the clear action of
// the controller's notification. Does nothing if the header or the body is nil.
void attemptUpdateReply(NotificationController* self, NCNotificationViewControllerView* view);
// Appends the body to the controller's banner if its notification can be answered and its original header is `header`.
void appendUpdate(BannerController* self, NSString* header, NSString* body);
