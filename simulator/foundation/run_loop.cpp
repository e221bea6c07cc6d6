#include "simulator/foundation/run_loop.hpp"

#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>

#include "objc/autorelease_pool.hpp"
#include "objc/class_definition.hpp"
#include "platform/ns_date.hpp"
#include "simulator/foundation/clock.hpp"
#include "simulator/foundation/main_queue.hpp"

namespace foundation {

// The object to which GNUstep's run loop reports events on descriptors.
class DescriptorWatcher : public objc::Interface<"BrimDescriptorWatcher", NSObject> {};

namespace {

enum class RunLoopEvent : int { Readable = 0 };

NSString* defaultMode() { return "NSDefaultRunLoopMode"_ns; }
NSObject* currentRunLoop() { return objc::send<NSObject*, "currentRunLoop">(objc::lookUpClass<"NSRunLoop">()); }
void* asData(int descriptor) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(descriptor)); }

using Callback = std::shared_ptr<std::function<void()>>;

std::map<int, Callback>& callbacks() {
  static std::map<int, Callback> watched;
  return watched;
}

void receivedEvent(DescriptorWatcher*, void* data, RunLoopEvent, void*, NSString*) {
  const auto found = callbacks().find(static_cast<int>(reinterpret_cast<std::intptr_t>(data)));
  if (found == callbacks().end()) return;
  // A copy, because the callback can unwatch its own descriptor, which destroys the original.
  const Callback callback = found->second;
  (*callback)();
}

DescriptorWatcher* watcher() {
  static DescriptorWatcher* const shared = [] {
    static constexpr objc::MethodEntry methods[] = {
        objc::method<"receivedEvent:type:extra:forMode:", &receivedEvent>()};
    objc::defineClass<DescriptorWatcher>(methods);
    return objc::make<DescriptorWatcher>().leak();
  }();
  return shared;
}

// Whether the wake descriptor is already readable. No further write is necessary until it is read.
std::atomic<bool> isWakePending = false;

void consume(int descriptor) {
  std::uint64_t count = 0;
  [[maybe_unused]] const ssize_t size = read(descriptor, &count, sizeof count);
}

int wakeDescriptor() {
  static const int descriptor = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
  return descriptor;
}

// Returns the timer that ends a sleep. The timeouts of GNUstep's run loop are late and rounded to milliseconds, which
// is not precise enough for frames.
int timerDescriptor() {
  static const int descriptor = timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC);
  return descriptor;
}

void setTimer(Nanoseconds deadline) {
  static Nanoseconds current = never;
  if (current == deadline) return;
  current = deadline;
  itimerspec setting = {};
  if (deadline != never) {
    setting.it_value.tv_sec = deadline / nanosecondsInSecond;
    setting.it_value.tv_nsec = deadline % nanosecondsInSecond;
  }
  timerfd_settime(timerDescriptor(), TFD_TIMER_ABSTIME, &setting, nullptr);
}

void watchOwnDescriptors() {
  static const bool watched = [] {
    watchDescriptor(wakeDescriptor(), [] {
      consume(wakeDescriptor());
      isWakePending = false;
    });
    watchDescriptor(timerDescriptor(), [] { consume(timerDescriptor()); });
    return true;
  }();
  static_cast<void>(watched);
}

void ignoreTimer(NSObject*, SEL, NSObject*, NSString*) {}

NSDate* distantPast() { return objc::send<NSDate*, "distantPast">(NSDate::classObject()); }
NSDate* distantFuture() { return objc::send<NSDate*, "distantFuture">(NSDate::classObject()); }

}  // namespace

void makeRunLoopWithoutHousekeeping() {
  const objc::AutoreleasePool pool;
  const Method addTimer =
      class_getInstanceMethod(objc::lookUpClass<"NSRunLoop">(), objc::selector<"addTimer:forMode:">());
  const IMP original = method_getImplementation(addTimer);
  method_setImplementation(addTimer, reinterpret_cast<IMP>(reinterpret_cast<void (*)()>(&ignoreTimer)));
  currentRunLoop();
  method_setImplementation(addTimer, original);
}

void watchDescriptor(int descriptor, std::function<void()> whenReadable) {
  callbacks()[descriptor] = std::make_shared<std::function<void()>>(std::move(whenReadable));
  objc::send<void, "addEvent:type:watcher:forMode:">(currentRunLoop(), asData(descriptor), RunLoopEvent::Readable,
                                                     watcher(), defaultMode());
}

void unwatchDescriptor(int descriptor) {
  if (callbacks().erase(descriptor) == 0) return;
  objc::send<void, "removeEvent:type:forMode:all:">(currentRunLoop(), asData(descriptor), RunLoopEvent::Readable,
                                                    defaultMode(), true);
}

void pumpRunLoop(double waitAtMost) {
  const objc::AutoreleasePool pool;
  watchOwnDescriptors();
  if (waitAtMost > 0) {
    sleepUntil(clock::systemTime(saturatingSum(clock::realNow(), nanosecondsOf(waitAtMost))));
    scheduleExternalWork();
  }
  objc::send<void, "acceptInputForMode:beforeDate:">(currentRunLoop(), defaultMode(), distantPast());
}

void pumpRunLoopAndMainQueue(double waitAtMost) {
  const objc::AutoreleasePool pool;
  pumpRunLoop(waitAtMost);
  drainMainQueue();
  runNextRequest();
}

void sleepUntil(Nanoseconds deadline) {
  const objc::AutoreleasePool pool;
  watchOwnDescriptors();
  setTimer(deadline);
  objc::send<bool, "runMode:beforeDate:">(currentRunLoop(), defaultMode(), distantFuture());
}

void wakeMainThread() {
  if (isWakePending.exchange(true)) return;
  const std::uint64_t one = 1;
  [[maybe_unused]] const ssize_t size = write(wakeDescriptor(), &one, sizeof one);
}

}  // namespace foundation
