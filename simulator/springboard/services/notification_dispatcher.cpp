#include "simulator/springboard/services/notification_dispatcher.hpp"

#include <utility>
#include <vector>

#include "platform/ui_window.hpp"

namespace springboard {

namespace {

using Dispatcher = NCNotificationDispatcher;

std::vector<NotificationDestination>& destinations() {
  static auto& registered = *new std::vector<NotificationDestination>;
  return registered;
}

void notifyListObservers(const Dispatcher* dispatcher) {
  // A copy, because an observer can add or remove observers.
  const auto observers = objc::state(dispatcher).listObservers;
  for (const auto& [number, observer] : observers) observer();
}

void addToList(Dispatcher* self, NCNotificationRequest* request) {
  objc::state(self).list.insert(request);
  notifyListObservers(self);
}

// Replaces a listed request. A notification that the user has opened or cleared is not added to the list again.
void modify(Dispatcher* self, NCNotificationRequest* request) {
  if (request != nullptr && objc::state(self).list.remove(keyOf(request))) addToList(self, request);
}

void post(Dispatcher* self, NCNotificationRequest* request) {
  if (request == nullptr) return;
  addToList(self, request);
  for (const NotificationDestination& destination : destinations()) destination.post(request);
}

void withdraw(Dispatcher* self, NCNotificationRequest* request) {
  if (request == nullptr) return;
  const NotificationKey key = keyOf(request);
  if (objc::state(self).list.remove(key)) notifyListObservers(self);
  for (const NotificationDestination& destination : destinations()) destination.withdraw(key);
}

// Executes an action. For the default action, the home screen launches the application. The effects that other actions
// have in the application are not simulated.
void execute(Dispatcher* self, NSObject*, NCNotificationAction* action, NCNotificationRequest* request, bool,
             NSDictionary*, objc::Block<void()>* completion) {
  if (action == nullptr || request == nullptr) return;
  const NotificationRequestState& state = objc::state(request);
  if (action == state.defaultAction)
    UIApplication::sharedApplication()->launchApplication(state.sectionIdentifier, false);
  if (objc::state(action).shouldDismissNotification) self->withdraw(request);
  if (completion != nullptr) (*completion)();
}

}  // namespace

void addNotificationDestination(NotificationDestination destination) {
  destinations().push_back(std::move(destination));
}

void defineNotificationDispatcher() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"postNotificationWithRequest:", &post>(),
      objc::method<"modifyNotificationWithRequest:", &modify>(),
      objc::method<"withdrawNotificationWithRequest:", &withdraw>(),
      objc::method<"destination:executeAction:forNotificationRequest:requestAuthentication:withParameters:completion:",
                   &execute>(),
  };
  objc::defineClassWithState<Dispatcher>(methods);
}

}  // namespace springboard

NCNotificationDispatcher* NCNotificationDispatcher::shared() {
  static NCNotificationDispatcher* const dispatcher = objc::make<NCNotificationDispatcher>().leak();
  return dispatcher;
}

void NCNotificationDispatcher::execute(NCNotificationAction* action, NCNotificationRequest* request,
                                       NSDictionary* parameters) {
  objc::send<void, "destination:executeAction:forNotificationRequest:requestAuthentication:withParameters:completion:">(
      this, static_cast<NSObject*>(nullptr), action, request, false, parameters,
      static_cast<objc::Block<void()>*>(nullptr));
}

void NCNotificationDispatcher::restore(NCNotificationRequest* request) { springboard::addToList(this, request); }

const springboard::NotificationList& NCNotificationDispatcher::list() const { return objc::state(this).list; }

std::size_t NCNotificationDispatcher::observeList(std::function<void()> observer) {
  NotificationDispatcherState& state = objc::state(this);
  state.listObservers.emplace(++state.lastListObserver, std::move(observer));
  return state.lastListObserver;
}

void NCNotificationDispatcher::stopObservingList(std::size_t observer) {
  objc::state(this).listObservers.erase(observer);
}
