#include "simulator/foundation/distributed_notifications.hpp"

#include <cstdio>
#include <vector>

#include "objc/autorelease_pool.hpp"
#include "objc/class_definition.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/notification_daemon.hpp"

namespace foundation {

// The observer that is registered with the daemon in place of the caller's. The connection to the daemon stores an
// unretained pointer and uses it even after the object is deallocated, so this object is never deallocated.
class DistributedObserver : public objc::Interface<"BrimDistributedObserver", NSObject> {};

}  // namespace foundation

struct DistributedObserverState {
  objc::Weak<NSObject> observer;
  // Identifies the observer in removeObserver, which is often called during its deallocation, when `observer` is null.
  const NSObject* address = nullptr;
  SEL selector = nullptr;
  objc::Ref<NSString> name;
  objc::Ref<NSString> object;
  NSUInteger suspensionBehavior = 0;
  bool isRegistered = false;
};
template <>
struct objc::StateOf<foundation::DistributedObserver> {
  using Type = DistributedObserverState;
};

namespace foundation {

namespace {

using Center = NSDistributedNotificationCenter;
using Observers = std::vector<objc::Ref<DistributedObserver>>;

// The daemon accepts a post while it still delivers the previous one, recursively. Too many posts without a pause
// exhaust its stack.
constexpr int maxUnansweredPosts = 8;

Observers& observers() {
  static Observers& all = *new Observers;
  return all;
}

// Whether this process is calling the daemon. The daemon can deliver notifications during the call.
bool isCallingDaemon = false;

// The number of notifications that wait on the main queue.
int pendingNotifications = 0;

void notify(DistributedObserver* self, NSNotification* notification) {
  const DistributedObserverState& state = objc::state(self);
  const objc::Ref<NSObject> observer = state.observer.lock();
  if (observer == nullptr) return;
  const id target = objc::detail::toId(observer.get());
  objc::detail::call<void>(objc::implementationFor(target, state.selector), target, state.selector, notification);
}

// A notification that arrives during a call to the daemon is delivered later, because the caller does not expect
// observers to run inside its call. Notifications behind it wait too, which preserves their order.
void deliver(DistributedObserver* self, NSNotification* notification) {
  if (!isCallingDaemon && pendingNotifications == 0) return notify(self, notification);
  ++pendingNotifications;
  onMainThread([observer = objc::retain(self), pending = objc::retain(notification)] {
    --pendingNotifications;
    notify(observer.get(), pending.get());
  });
}

// Foundation raises an exception if the daemon has ended or cannot be started.
template <class Work>
bool succeeds(const Work& work) try {
  work();
  return true;
} catch (...) {
  return false;
}

// Watches the daemon with which the observers are registered. Not open if there is none.
FileDescriptor& watchedDaemon() {
  static auto& daemon = *new FileDescriptor;
  return daemon;
}

// Makes Foundation drop the connection to a daemon that has ended. Foundation may not have noticed the end yet.
void disconnect(Center* center) {
  void* remote = nullptr;
  object_getInstanceVariable(objc::detail::toId(center), "_remote", &remote);
  if (remote == nullptr) return;
  succeeds([remote] { objc::send<void, "invalidate">(objc::send<NSObject*, "connectionForProxy">(remote)); });
}

// Tries again with a new daemon if the daemon has ended.
template <class Work>
bool succeedsWithRetry(Center* center, const Work& work) {
  if (succeeds(work)) return true;
  disconnect(center);
  return succeeds(work);
}

struct DaemonCall {
  DaemonCall() { isCallingDaemon = true; }
  DaemonCall(const DaemonCall&) = delete;
  DaemonCall& operator=(const DaemonCall&) = delete;
  ~DaemonCall() { isCallingDaemon = false; }
};

using Add = objc::Original<void(Center*, NSObject*, SEL, NSString*, NSString*, NSUInteger)>;
using Remove = objc::Original<void(Center*, NSObject*, NSString*, NSString*)>;
using Post = objc::Original<void(Center*, NSString*, NSString*, NSDictionary*, bool)>;
using Invalidated = objc::Original<void(Center*, NSNotification*)>;

void addObserver(Add original, Center* self, NSObject* observer, SEL selector, NSString* name, NSString* object,
                 NSUInteger suspensionBehavior);

void registerObserver(Center* center, const objc::Ref<DistributedObserver>& observer) {
  using Hook = objc::detail::HookOf<&addObserver>;
  const Add original(Hook::replaced, objc::selector<"addObserver:selector:name:object:suspensionBehavior:">());
  DistributedObserverState& state = objc::state(observer.get());
  if (state.isRegistered) return;
  state.isRegistered = succeeds([&] {
    original(center, observer, objc::selector<"deliver:">(), state.name, state.object, state.suspensionBehavior);
  });
}

bool registerAllObservers(Center* center) {
  // If the daemon ends during the first loop, connectionInvalidated resets isRegistered of all observers.
  const Observers all = observers();
  for (const auto& observer : all) registerObserver(center, observer);
  for (const auto& observer : all)
    if (!objc::state(observer.get()).isRegistered) return false;
  return true;
}

void addObserver(Add, Center* self, NSObject* observer, SEL selector, NSString* name, NSString* object,
                 NSUInteger suspensionBehavior) {
  auto added = objc::make<DistributedObserver>();
  DistributedObserverState& state = objc::state(added.get());
  state.observer = observer;
  state.address = observer;
  state.selector = selector;
  state.name = objc::retain(name);
  state.object = objc::retain(object);
  state.suspensionBehavior = suspensionBehavior;
  observers().push_back(added);
  registerObserver(self, added);
  if (!state.isRegistered) watchedDaemon() = {};
}

// Nil as the wanted string matches everything.
bool matches(NSString* wanted, NSString* present) {
  return wanted == nullptr || (present != nullptr && wanted->isEqualToString(present));
}

void removeObserver(Remove original, Center* self, NSObject* observer, NSString* name, NSString* object) {
  std::erase_if(observers(), [&](const objc::Ref<DistributedObserver>& candidate) {
    const DistributedObserverState& state = objc::state(candidate.get());
    if (state.address != observer || !matches(name, state.name) || !matches(object, state.object)) return false;
    // Never released, because the daemon may still send a notification to it.
    objc::retainObject(candidate.get());
    succeeds([&] { original(self, candidate, state.name, state.object); });
    return true;
  });
}

// Unlike a post, this call waits for the daemon's reply.
void waitForDaemon(Center* center) { objc::send<void, "setSuspended:">(center, false); }

void post(Post original, Center* self, NSString* name, NSString* object, NSDictionary* userInfo, bool immediately) {
  const DaemonCall call;
  if (!succeedsWithRetry(self, [&] { original(self, name, object, userInfo, immediately); })) {
    std::fprintf(stderr,
                 "the notification %s was not posted: the notification daemon does not run and cannot be started\n",
                 name->UTF8String());
    return;
  }
  static int unanswered = 0;
  unanswered = (unanswered + 1) % maxUnansweredPosts;
  if (unanswered == 0) succeeds([self] { waitForDaemon(self); });
}

void connectionInvalidated(Invalidated original, Center* self, NSNotification* notification) {
  original(self, notification);
  for (const auto& observer : observers()) objc::state(observer.get()).isRegistered = false;
  watchedDaemon() = {};
  if (!observers().empty()) onMainThread([self] { registerAllObservers(self); });
}

template <auto function, objc::FixedString selector>
void replace() {
  using Hook = objc::detail::HookOf<function>;
  MSHookMessageEx(Center::classObject(), objc::selector<selector>(), Hook::implementation(), &Hook::replaced);
}

}  // namespace

void installDistributedNotifications() {
  static constexpr objc::MethodEntry methods[] = {objc::method<"deliver:", &deliver>()};
  objc::defineClassWithState<DistributedObserver>(methods);
  replace<&addObserver, "addObserver:selector:name:object:suspensionBehavior:">();
  replace<&removeObserver, "removeObserver:name:object:">();
  replace<&post, "postNotificationName:object:userInfo:deliverImmediately:">();
  replace<&connectionInvalidated, "_invalidated:">();
}

bool connectToNotificationDaemon() {
  if (isDaemonRunning(watchedDaemon())) return true;
  const DaemonCall call;
  const objc::AutoreleasePool pool;
  Center* center = Center::defaultCenter();
  const bool isConnected = succeedsWithRetry(center, [center] { waitForDaemon(center); });
  if (!isConnected || !registerAllObservers(center)) return false;
  watchedDaemon() = watchDaemon();
  return true;
}

}  // namespace foundation
