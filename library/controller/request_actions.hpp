// The actions of a notification request: how to find them, and how to have the platform execute them. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// Asks the platform to execute the action, without animation.
void execute(NotificationController* self, NCNotificationAction* action, NSDictionary* parameters);
void execute(NotificationController* self, NCNotificationAction* action);

// Whether the platform can present the request. True if the platform has no method to find it out.
bool canPresent(NCNotificationRequest* request);

// Returns the identifier of the action, or nil if the action has none.
NSString* identifierOf(NSObject* action);

// Whether the notification is from the application with this bundle identifier.
bool isFromApplication(BannerController* self, NSString* application);

// Calls `find` for each group, in the dictionary's order, until `find` returns an action. Returns this action, or nil.
template <class FindInGroup>
NCNotificationAction* firstActionInGroups(NSDictionary* groups, const FindInGroup& find) {
  NSArray* keys = groups->allKeys();
  for (NSUInteger index = 0; index < keys->count(); ++index) {
    auto* group = static_cast<NSArray*>(groups->objectForKey(keys->objectAtIndex(index)));
    if (group == nullptr || group->count() == 0) continue;
    if (NCNotificationAction* found = find(group)) return found;
  }
  return nullptr;
}
