// Opens and closes the long look of a short look. At most one long look is open. Main thread.
#pragma once

#include "simulator/springboard/banner/long_look_presentation.hpp"
#include "simulator/springboard/long_look/long_look_controller.hpp"
#include "simulator/springboard/services/notification_list.hpp"

namespace springboard {

// Opens the long look of `shortLook` and closes any other. The completion can be null; it receives true after the
// animation. The long look is not opened if the short look's view is not in a window, if its banner is being dismissed,
// or if its long look is already open. In these cases the completion receives false immediately.
void presentLongLook(NCNotificationShortLookViewController* shortLook, LongLookChange change,
                     objc::Block<void(bool)>* completion);

// Returns the short look whose long look is open, or nil if no long look is open.
NCNotificationShortLookViewController* openedShortLook();

// Closes the open long look, if any. Also dismisses the banner of its short look. A short look in the list is shown
// again.
void dismissLongLook(LongLookChange change);
// Closes the open long look if it shows this notification.
void dismissLongLookOf(const NotificationKey& key);

// Closes the open long look if it belongs to this controller.
void dismissLongLook(const NCNotificationLongLookViewController* longLook);

}  // namespace springboard
