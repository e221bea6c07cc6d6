#include "simulator/foundation/main_queue.hpp"

#include <algorithm>
#include <list>
#include <utility>

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/clock.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/foundation/work_list.hpp"

namespace foundation {

namespace {

using FrameObserver = std::function<FrameDemand(double now)>;

constexpr std::int64_t framesInSecond = 60;

// The list is never destroyed, because other threads can still add work while the process exits.
WorkList& workList() {
  static WorkList& list = *new WorkList;
  return list;
}

// The list of work that external events have caused and that waits until real time passes.
WorkList& externalWork() {
  static WorkList& list = *new WorkList;
  return list;
}

std::list<FrameObserver>& frameObservers() {
  static std::list<FrameObserver>& observers = *new std::list<FrameObserver>;
  return observers;
}

std::function<void()>& endOfIterationObserver() {
  static std::function<void()>& observer = *new std::function<void()>([] {});
  return observer;
}

// Returns the time of a frame. Frame n is shown n sixtieths of a second after the clock's zero, rounded to nanoseconds.
// All animations share these time points, as on a screen with a fixed refresh rate.
Nanoseconds timeOfFrame(std::int64_t frame) {
  return frame / framesInSecond * nanosecondsInSecond +
         (frame % framesInSecond * nanosecondsInSecond + framesInSecond / 2) / framesInSecond;
}

std::int64_t frameAfter(Nanoseconds time) {
  std::int64_t frame =
      time / nanosecondsInSecond * framesInSecond + time % nanosecondsInSecond * framesInSecond / nanosecondsInSecond;
  while (timeOfFrame(frame) <= time) ++frame;
  return frame;
}

// The number of the next frame. It is valid only while there are observers.
std::int64_t nextFrame = 0;

Nanoseconds nextFrameTime() { return frameObservers().empty() ? never : timeOfFrame(nextFrame); }

void callFrameObservers(Nanoseconds time) {
  const objc::AutoreleasePool pool;
  std::list<FrameObserver>& observers = frameObservers();
  // An observer that is added during the loop is appended and is first called at the next frame.
  std::size_t remaining = observers.size();
  for (auto observer = observers.begin(); remaining > 0; --remaining) {
    const FrameDemand demand = (*observer)(secondsOf(time));
    observer = demand == FrameDemand::More ? std::next(observer) : observers.erase(observer);
  }
}

void runFrame(Nanoseconds time) {
  nextFrame = frameAfter(time);
  callFrameObservers(time);
}

Nanoseconds nextEvent() { return std::min(workList().nextTime(), nextFrameTime()); }

void stepTo(Nanoseconds target) {
  for (Nanoseconds event = nextEvent(); event <= target; event = nextEvent()) {
    clock::setSteppedTime(std::max(event, clock::now()));
    drainMainQueue();
    if (nextFrameTime() <= clock::now()) runFrame(clock::now());
    drainMainQueue();
  }
  clock::setSteppedTime(target);
}

void runIteration() {
  drainMainQueue();
  const Nanoseconds time = clock::now();
  if (nextFrameTime() <= time) runFrame(time);
}

}  // namespace

void useClock(ClockMode mode, double unixTime) {
  const Nanoseconds before = clock::now();
  clock::setMode(mode, unixTime);
  workList().shift(before, clock::now());
  nextFrame = frameAfter(clock::now());
}

void onMainThread(std::function<void()> work) {
  workList().add(std::move(work));
  wakeMainThread();
}

void onMainThreadAfter(double seconds, std::function<void()> work) {
  onMainThreadAt(saturatingSum(clock::now(), nanosecondsOf(seconds)), std::move(work));
}

void onMainThreadAt(Nanoseconds when, std::function<void()> work) {
  workList().addAt(when, std::move(work));
  wakeMainThread();
}

void onMainThreadForExternalEvent(std::function<void()> work) {
  (clock::mode() == ClockMode::Stepped ? externalWork() : workList()).add(std::move(work));
  wakeMainThread();
}

void scheduleExternalWork() {
  while (std::function<void()> work = externalWork().takeDue(0)) workList().add(std::move(work));
}

void addFrameObserver(FrameObserver observer) {
  if (frameObservers().empty()) nextFrame = frameAfter(clock::now());
  frameObservers().push_back(std::move(observer));
}

void observeEndOfIteration(std::function<void()> observer) { endOfIterationObserver() = std::move(observer); }

void drainMainQueue() {
  do {
    while (const std::function<void()> work = workList().takeDue(clock::now())) {
      const objc::AutoreleasePool pool;
      work();
    }
    const objc::AutoreleasePool pool;
    endOfIterationObserver()();
  } while (workList().nextTime() <= clock::now());
}

void stepClock(double seconds) {
  const Nanoseconds duration = nanosecondsOf(seconds);
  const Nanoseconds target = duration == never ? clock::now() : saturatingSum(clock::now(), duration);
  if (clock::mode() == ClockMode::Real) {
    // Schedules empty work at the target time. It wakes the main thread, because no other event may occur before that
    // time.
    onMainThreadAt(target, [] {});
    runMainQueueUntil([target] { return clock::now() >= target; });
  } else {
    drainMainQueue();
    stepTo(target);
  }
}

bool mainQueueIsIdle() { return nextEvent() == never; }

void runMainQueueUntil(const std::function<bool()>& stop) {
  for (runIteration(); !stop(); runIteration()) sleepUntil(clock::systemTime(nextEvent()));
}

}  // namespace foundation
