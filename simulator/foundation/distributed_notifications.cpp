#include "simulator/foundation/distributed_notifications.hpp"

#include <cstdio>
#include <vector>

#include "objc/autorelease_pool.hpp"
#include "objc/class_definition.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/foundation/ignored_leaks.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/notification_daemon.hpp"

namespace foundation {

// Is registered with the daemon in place of the caller's observer. The connection to the daemon stores an unretained
// pointer to its observer and uses it even after the observer is deallocated. Therefore, an object of this class is
// never deallocated.
class DistributedObserver : public objc::Interface<"BrimDistributedObserver", NSObject> {};

}  // namespace foundation

struct DistributedObserverState {
  objc::Weak<NSObject> observer;
  // Identifies the observer in removeObserver. That method is often called while the observer is deallocated, when the
  // weak reference `observer` is already null.
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

// The maximum number of posts that are sent without waiting for the daemon. The daemon can accept a post while it is
// still delivering the previous one, so its calls are nested. Too many posts in a row exhaust its stack.
constexpr int maxUnansweredPosts = 8;

Observers& observers() {
  static Observers& all = *new Observers;
  return all;
}

// Whether this process is calling the daemon. The daemon can deliver notifications during the call.
bool isCallingDaemon = false;

// The number of received notifications whose delivery is pending on the main queue.
int pendingNotifications = 0;

void notify(DistributedObserver* self, NSNotification* notification) {
  const DistributedObserverState& state = objc::state(self);
  const objc::Ref<NSObject> observer = state.observer.lock();
  if (observer == nullptr) return;
  const id target = objc::detail::toId(observer.get());
  objc::detail::call<void>(objc::implementationFor(target, state.selector), target, state.selector, notification);
}

// Delivers a notification to its observer. If the notification arrives during a call to the daemon, it is delivered
// later, because the caller does not expect observers to run inside its call. Notifications that arrive after a delayed
// one are also delayed, which preserves their order.
void deliver(DistributedObserver* self, NSNotification* notification) {
  if (!isCallingDaemon && pendingNotifications == 0) return notify(self, notification);
  ++pendingNotifications;
  onMainThread([observer = objc::retain(self), pending = objc::retain(notification)] {
    --pendingNotifications;
    notify(observer.get(), pending.get());
  });
}

// Runs the work and returns whether it succeeded. Foundation raises an exception if the daemon has ended or cannot be
// started.
template <class Work>
bool succeeds(const Work& work) try {
  work();
  return true;
} catch (...) {
  return false;
}

// A descriptor of the daemon with which all observers are registered. Not open if there is no registration.
FileDescriptor& watchedDaemon() {
  static auto& daemon = *new FileDescriptor;
  return daemon;
}

// Makes Foundation close the connection to a daemon that has ended. Foundation does not always notice the end itself.
void disconnect(Center* center) {
  void* remote = nullptr;
  object_getInstanceVariable(objc::detail::toId(center), "_remote", &remote);
  if (remote == nullptr) return;
  succeeds([remote] { objc::send<void, "invalidate">(objc::send<NSObject*, "connectionForProxy">(remote)); });
}

// Runs the work and returns whether it succeeded. If the daemon has ended, runs the work again with a new daemon.
template <class Work>
bool succeedsWithRetry(Center* center, const Work& work) {
  if (succeeds(work)) return true;
  disconnect(center);
  return succeeds(work);
}

struct DaemonCall {
  // Foundation leaks its objects for a daemon that has ended.
  IgnoredLeaks ignored;
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
  const IgnoredLeaks ignored;
  state.isRegistered = succeeds([&] {
    original(center, observer, objc::selector<"deliver:">(), state.name, state.object, state.suspensionBehavior);
  });
}

bool registerAllObservers(Center* center) {
  // If the daemon ends during the first loop, connectionInvalidated sets isRegistered of all observers to false. The
  // second loop therefore checks all observers again.
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

// Returns whether the string equals `wanted`. If `wanted` is nil, every string matches.
bool matches(NSString* wanted, NSString* present) {
  return wanted == nullptr || (present != nullptr && wanted->isEqualToString(present));
}

void removeObserver(Remove original, Center* self, NSObject* observer, NSString* name, NSString* object) {
  std::erase_if(observers(), [&](const objc::Ref<DistributedObserver>& candidate) {
    const DistributedObserverState& state = objc::state(candidate.get());
    if (state.address != observer || !matches(name, state.name) || !matches(object, state.object)) return false;
    // The observer is never released, because the daemon can still send a notification to it.
    objc::retainObject(candidate.get());
    succeeds([&] { original(self, candidate, state.name, state.object); });
    return true;
  });
}

// Waits until the daemon has replied to a call. A post alone does not wait for a reply.
void waitForDaemon(Center* center) { objc::send<void, "setSuspended:">(center, false); }

void post(Post original, Center* self, NSString* name, NSString* object, NSDictionary* userInfo, bool immediately) {
  const DaemonCall call;
  if (!succeedsWithRetry(self, [&] { original(self, name, object, userInfo, immediately); })) {
    std::fprintf(stderr,
                 "the notification %s was not posted: the notification daemon is not running and cannot be started\n",
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
