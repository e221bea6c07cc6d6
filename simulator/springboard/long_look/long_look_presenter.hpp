// Opens the long look of a short look and closes it. At most one long look is open. Main thread.
#pragma once

#include "simulator/springboard/banner/long_look_presentation.hpp"
#include "simulator/springboard/long_look/long_look_controller.hpp"
#include "simulator/springboard/services/notification_list.hpp"

namespace springboard {

// Opens the long look of `shortLook` and closes any other. The completion receives true after the animation. It
// receives false at once, and nothing changes, if the short look's view is in no window, its banner is being dismissed,
// or its long look is already open. The completion can be null.
void presentLongLook(NCNotificationShortLookViewController* shortLook, LongLookChange change,
                     objc::Block<void(bool)>* completion);

// The short look whose long look is open. Nil if none is open.
NCNotificationShortLookViewController* openedShortLook();

// Closes the open long look, if any. A banner is dismissed together with its long look. A short look in the list is
// shown again.
void dismissLongLook(LongLookChange change);
// The same, if the open long look shows this notification.
void dismissLongLookOf(const NotificationKey& key);

// The same, if the open long look belongs to this controller.
void dismissLongLook(const NCNotificationLongLookViewController* longLook);

}  // namespace springboard
