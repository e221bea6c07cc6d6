// Finds the actions of a notification request, and has the platform execute them. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// Asks the platform to execute the action, without animation.
void execute(NotificationController* self, NCNotificationAction* action, NSDictionary* parameters);
void execute(NotificationController* self, NCNotificationAction* action);

// Returns whether the platform can present the request, or true if the method that checks this is missing.
bool canPresent(NCNotificationRequest* request);

// Returns the identifier of the action, or nil if the action has none.
NSString* identifierOf(NSObject* action);

// Returns whether the notification is from the application with this bundle identifier.
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
