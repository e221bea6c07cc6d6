// Opens a short look into its long look, and closes it again. There is one at a time.
#pragma once

#include "simulator/springboard/banner/long_look_presentation.hpp"
#include "simulator/springboard/long_look/long_look_controller.hpp"
#include "simulator/springboard/services/notification_list.hpp"

namespace springboard {

// The completion is told when the long look has opened, or at once that it has not: a controller whose view is in no
// window has nothing to open, a banner on its way out goes on, and one that shows its long look already stays as it is.
void presentLongLook(NCNotificationShortLookViewController* shortLook, LongLookChange change,
                     objc::Block<void(bool)>* completion);

// The short look whose long look is open; nil without.
NCNotificationShortLookViewController* openedShortLook();

// Closes what is open; nothing happens without. A banner goes with its long look, a short look in the list is there
// again.
void dismissLongLook(LongLookChange change);
void dismissLongLookOf(const NotificationKey& key);

// Closes this one, if it is what is open.
void endLongLook(const NCNotificationLongLookViewController* longLook);

}  // namespace springboard
