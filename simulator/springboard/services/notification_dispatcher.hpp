// The dispatcher of notifications. It distributes each notification to the destinations, such as the banners, and
// maintains the notification list. Main thread.
#pragma once

#include <functional>
#include <map>

#include "objc/class_definition.hpp"
#include "simulator/springboard/services/notification_list.hpp"

struct NotificationDispatcherState {
  springboard::NotificationList list;
  std::map<std::size_t, std::function<void()>> listObservers;
  std::size_t lastListObserver = 0;
};

class NCNotificationDispatcher : public objc::Interface<"NCNotificationDispatcher", NSObject> {
 public:
  // Returns the only instance.
  static NCNotificationDispatcher* shared();

  // Adds the request to the list and presents it at all destinations.
  void post(NCNotificationRequest* request) { objc::send<void, "postNotificationWithRequest:">(this, request); }
  // Replaces the listed request that has the same key. Does nothing if there is no such request.
  void modify(NCNotificationRequest* request) { objc::send<void, "modifyNotificationWithRequest:">(this, request); }
  // Removes the request from the list and from all destinations that show it.
  void withdraw(NCNotificationRequest* request) { objc::send<void, "withdrawNotificationWithRequest:">(this, request); }
  // Adds the request to the list without presenting it.
  void restore(NCNotificationRequest* request);
  // Executes the action. Most actions also withdraw the request.
  void execute(NCNotificationAction* action, NCNotificationRequest* request, NSDictionary* parameters);

  const springboard::NotificationList& list() const;
  // Adds a function that is called after each change of the list. Returns its number, which is greater than 0.
  std::size_t observeList(std::function<void()> observer);
  // Removes the function with this number. Does nothing if there is no such function.
  void stopObservingList(std::size_t observer);
};
template <>
struct objc::StateOf<NCNotificationDispatcher> {
  using Type = NotificationDispatcherState;
};

namespace springboard {

// A part of the screen that shows notifications, such as the banners.
struct NotificationDestination {
  std::function<void(NCNotificationRequest* request)> post;
  std::function<void(const NotificationKey& key)> withdraw;
};

// Adds a destination. The destinations receive each request in the order in which they were added. Call this at
// start-up.
void addNotificationDestination(NotificationDestination destination);

void defineNotificationDispatcher();

}  // namespace springboard
