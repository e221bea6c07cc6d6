#include "simulator/foundation/distributed_notifications.hpp"

#include <cstdio>
#include <vector>

#include "objc/autorelease_pool.hpp"
#include "objc/class_definition.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/notification_daemon.hpp"

namespace foundation {

// The daemon holds a bare address and sends to it whatever has become of the object; so it is given one of these, which
// stay.
class DistributedObserver : public objc::Interface<"BrimDistributedObserver", NSObject> {};

}  // namespace foundation

struct DistributedObserverState {
  objc::Weak<NSObject> observer;
  // Also that of an observer which is just ending.
  const NSObject* address = nullptr;
  SEL selector = nullptr;
  objc::Ref<NSString> name;
  objc::Ref<NSString> object;
  NSUInteger suspensionBehavior = 0;
  bool isKnownToDaemon = false;
};
template <>
struct objc::StateOf<foundation::DistributedObserver> {
  using Type = DistributedObserverState;
};

namespace foundation {

namespace {

using Center = NSDistributedNotificationCenter;
using Observers = std::vector<objc::Ref<DistributedObserver>>;

// The daemon takes in a post while it hands on the one before, one inside the other, and ends when its stack does.
constexpr int postsAhead = 8;

Observers& observers() {
  static Observers& all = *new Observers;
  return all;
}

// Whether somebody speaks to the daemon, which may hand something on meanwhile.
bool isSpeaking = false;

// How many notifications wait on the main queue.
int waiting = 0;

void tell(DistributedObserver* self, NSNotification* notification) {
  const DistributedObserverState& state = objc::state(self);
  const objc::Ref<NSObject> observer = state.observer.lock();
  if (observer == nullptr) return;
  const id target = objc::detail::toId(observer.get());
  objc::detail::call<void>(objc::implementationFor(target, state.selector), target, state.selector, notification);
}

// Whoever speaks to the daemon does not expect to be told of anything before that is done, and what came first is told
// first.
void deliver(DistributedObserver* self, NSNotification* notification) {
  if (!isSpeaking && waiting == 0) return tell(self, notification);
  ++waiting;
  onMainThread([observer = objc::retain(self), later = objc::retain(notification)] {
    --waiting;
    tell(observer.get(), later.get());
  });
}

// Foundation raises where the daemon is gone, or cannot be started.
template <class Work>
bool succeeds(const Work& work) try {
  work();
  return true;
} catch (...) {
  return false;
}

// The daemon that knows the observers, where it can be watched.
Descriptor& knownDaemon() {
  static auto& daemon = *new Descriptor;
  return daemon;
}

// What Foundation has not noticed yet: it forgets the daemon when the connection becomes invalid.
void forgetDaemon(Center* center) {
  void* remote = nullptr;
  object_getInstanceVariable(objc::detail::toId(center), "_remote", &remote);
  if (remote == nullptr) return;
  succeeds([remote] { objc::send<void, "invalidate">(objc::send<NSObject*, "connectionForProxy">(remote)); });
}

// A daemon that has ended since is met with once.
template <class Work>
bool succeedsWithSomeDaemon(Center* center, const Work& work) {
  if (succeeds(work)) return true;
  forgetDaemon(center);
  return succeeds(work);
}

struct Speaking {
  Speaking() { isSpeaking = true; }
  Speaking(const Speaking&) = delete;
  Speaking& operator=(const Speaking&) = delete;
  ~Speaking() { isSpeaking = false; }
};

using Add = objc::Original<void(Center*, NSObject*, SEL, NSString*, NSString*, NSUInteger)>;
using Remove = objc::Original<void(Center*, NSObject*, NSString*, NSString*)>;
using Post = objc::Original<void(Center*, NSString*, NSString*, NSDictionary*, bool)>;
using Invalidated = objc::Original<void(Center*, NSNotification*)>;

void addObserver(Add original, Center* self, NSObject* observer, SEL selector, NSString* name, NSString* object,
                 NSUInteger suspensionBehavior);

void introduce(Center* center, const objc::Ref<DistributedObserver>& observer) {
  using Hook = objc::detail::HookOf<&addObserver>;
  const Add original(Hook::replaced, objc::selector<"addObserver:selector:name:object:suspensionBehavior:">());
  DistributedObserverState& state = objc::state(observer.get());
  if (state.isKnownToDaemon) return;
  state.isKnownToDaemon = succeeds([&] {
    original(center, observer, objc::selector<"deliver:">(), state.name, state.object, state.suspensionBehavior);
  });
}

bool introduceAll(Center* center) {
  // A daemon that ends meanwhile is forgotten, and with it who was introduced.
  const Observers all = observers();
  for (const auto& observer : all) introduce(center, observer);
  for (const auto& observer : all)
    if (!objc::state(observer.get()).isKnownToDaemon) return false;
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
  introduce(self, added);
  if (!state.isKnownToDaemon) knownDaemon() = {};
}

bool covers(NSString* wanted, NSString* present) {
  return wanted == nullptr || (present != nullptr && wanted->isEqualToString(present));
}

void removeObserver(Remove original, Center* self, NSObject* observer, NSString* name, NSString* object) {
  std::erase_if(observers(), [&](const objc::Ref<DistributedObserver>& candidate) {
    const DistributedObserverState& state = objc::state(candidate.get());
    if (state.address != observer || !covers(name, state.name) || !covers(object, state.object)) return false;
    // The daemon may still be sending to it.
    objc::retainObject(candidate.get());
    succeeds([&] { original(self, candidate, state.name, state.object); });
    return true;
  });
}

// Unlike a post, this waits for the daemon's answer.
void awaitAnswer(Center* center) { objc::send<void, "setSuspended:">(center, false); }

void post(Post original, Center* self, NSString* name, NSString* object, NSDictionary* userInfo, bool immediately) {
  const Speaking speaking;
  if (!succeedsWithSomeDaemon(self, [&] { original(self, name, object, userInfo, immediately); })) {
    std::fprintf(stderr, "the notification %s was not posted: there is no notification daemon, and none starts\n",
                 name->UTF8String());
    return;
  }
  static int unanswered = 0;
  unanswered = (unanswered + 1) % postsAhead;
  if (unanswered == 0) succeeds([self] { awaitAnswer(self); });
}

void connectionInvalidated(Invalidated original, Center* self, NSNotification* notification) {
  original(self, notification);
  for (const auto& observer : observers()) objc::state(observer.get()).isKnownToDaemon = false;
  knownDaemon() = {};
  if (!observers().empty()) onMainThread([self] { introduceAll(self); });
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

bool joinDistributedNotifications() {
  if (daemonRuns(knownDaemon())) return true;
  const Speaking speaking;
  const objc::AutoreleasePool pool;
  Center* center = Center::defaultCenter();
  const bool answered = succeedsWithSomeDaemon(center, [center] { awaitAnswer(center); });
  if (!answered || !introduceAll(center)) return false;
  knownDaemon() = watchDaemon();
  return true;
}

}  // namespace foundation
