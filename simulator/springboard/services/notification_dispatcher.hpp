// The dispatcher: hands notifications to where they are shown, the banner and the list, and takes them away there.
#pragma once

#include <functional>

#include "objc/class_definition.hpp"
#include "simulator/springboard/services/notification_list.hpp"

struct NotificationDispatcherState {
  springboard::NotificationList list;
  std::function<void()> listObserver;
};

// Main thread.
class NCNotificationDispatcher : public objc::Interface<"NCNotificationDispatcher", NSObject> {
 public:
  // The phone's one.
  static NCNotificationDispatcher* shared();

  // Comes as a banner, and is listed.
  void post(NCNotificationRequest* request) { objc::send<void, "postNotificationWithRequest:">(this, request); }
  // Is listed with other texts. Nothing happens where it is not listed.
  void modify(NCNotificationRequest* request) { objc::send<void, "modifyNotificationWithRequest:">(this, request); }
  // Leaves the list, and its banner the screen. Nothing happens where there is neither.
  void withdraw(NCNotificationRequest* request) { objc::send<void, "withdrawNotificationWithRequest:">(this, request); }
  // Carries the action out. Most take their notification away.
  void execute(NCNotificationAction* action, NCNotificationRequest* request, NSDictionary* parameters);

  const springboard::NotificationList& list() const;
  // Told of every change; one for all.
  void observeList(std::function<void()> observer);
};
template <>
struct objc::StateOf<NCNotificationDispatcher> {
  using Type = NotificationDispatcherState;
};

namespace springboard {

// A place where notifications appear, such as the banners.
struct NotificationDestination {
  std::function<void(NCNotificationRequest* request)> post;
  std::function<void(const NotificationKey& key)> withdraw;
};

// Destinations receive each request in the order in which they were added. Call it at start-up.
void addNotificationDestination(NotificationDestination destination);

void defineNotificationDispatcher();

}  // namespace springboard
