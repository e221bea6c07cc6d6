#include "library/controller/alarm_actions.hpp"

#include "library/controller/haptic.hpp"
#include "library/controller/request_actions.hpp"

namespace {

NSString* clockIdentifier() { return "com.apple.mobiletimer"_ns; }
NSString* snoozeIdentifier() { return "MTAlarmSnoozeAction"_ns; }

// Returns the snooze action of the group, or nil. The platform always puts the snooze action first in its group.
NCNotificationAction* snoozeIn(NSArray* group) {
  NSObject* first = group->objectAtIndex(0);
  NSString* identifier = identifierOf(first);
  const bool snoozes = identifier != nullptr && identifier->contains(snoozeIdentifier());
  return snoozes ? static_cast<NCNotificationAction*>(first) : nullptr;
}

}  // namespace

bool isAlarm(BannerController* self) { return isFromApplication(self, clockIdentifier()); }

NSArray* getAlarmActions(BannerController* self) {
  NCNotificationRequest* request = self->notificationRequest();
  if (request == nullptr || !canPresent(request)) return nullptr;
  NSMutableArray* actions = NSMutableArray::array();
  NCNotificationAction* snooze = firstActionInGroups(request->supplementaryActions(), &snoozeIn);
  if (snooze != nullptr) actions->addObject(snooze);
  if (request->closeAction() != nullptr) actions->addObject(request->closeAction());
  return actions;
}

void executeOnAlarm(BannerController* self, BrimContainer* view, NSUInteger index) {
  if (self->notificationRequest() == nullptr) return;
  NSArray* actions = self->getAlarmActions();
  if (index < actions->count()) execute(self, static_cast<NCNotificationAction*>(actions->objectAtIndex(index)));
  confirmWithHaptic();
  self->forceDismissNotification(view != nullptr ? view : self->brimView());
}
