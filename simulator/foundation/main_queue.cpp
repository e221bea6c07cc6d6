#include "simulator/foundation/main_queue.hpp"

#include <algorithm>
#include <deque>
#include <list>
#include <utility>

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/clock.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/foundation/work_list.hpp"

namespace foundation {

namespace {

using FrameFunction = std::function<FrameDemand(double now)>;

struct FrameObserver {
  FrameObserverId id;
  FrameFunction call;
  Nanoseconds nextCall;  // the time of a frame
};

struct IterationObserver {
  IterationObserverId id;
  std::function<void()> call;
};

constexpr std::int64_t framesInSecond = 60;

// The list is never destroyed, because other threads can still add work while the process exits.
WorkList& workList() {
  static WorkList& list = *new WorkList;
  return list;
}

// The work that external events have caused. It is pending until real time passes.
WorkList& externalWork() {
  static WorkList& list = *new WorkList;
  return list;
}

std::deque<std::function<void()>>& requests() {
  static auto& waiting = *new std::deque<std::function<void()>>;
  return waiting;
}

std::list<FrameObserver>& frameObservers() {
  static std::list<FrameObserver>& observers = *new std::list<FrameObserver>;
  return observers;
}

std::list<IterationObserver>& iterationObservers() {
  static std::list<IterationObserver>& observers = *new std::list<IterationObserver>;
  return observers;
}

// Returns the time of a frame. Frame n is shown n sixtieths of a second after the clock's zero, rounded to nanoseconds.
// All animations share these time points, as on a screen with a fixed refresh rate.
Nanoseconds timeOfFrame(std::int64_t frame) {
  return frame / framesInSecond * nanosecondsInSecond +
         (frame % framesInSecond * nanosecondsInSecond + framesInSecond / 2) / framesInSecond;
}

Nanoseconds nextFrameTime() {
  Nanoseconds next = never;
  for (const FrameObserver& observer : frameObservers()) next = std::min(next, observer.nextCall);
  return next;
}

// Calls the observers that are due. An observer that is added during the loop is appended and is first called at a
// later frame.
void runFrame(Nanoseconds time) {
  const objc::AutoreleasePool pool;
  const Nanoseconds nextFrame = frameTimeAfter(time);
  std::list<FrameObserver>& observers = frameObservers();
  for (auto observer = observers.begin(); observer != observers.end();) {
    const bool isDue = observer->nextCall <= time;
    const bool isDone = isDue && observer->call(secondsOf(time)) == FrameDemand::Done;
    if (isDue) observer->nextCall = nextFrame;
    observer = isDone ? observers.erase(observer) : std::next(observer);
  }
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
  if (const Nanoseconds time = clock::now(); nextFrameTime() <= time) {
    runFrame(time);
    drainMainQueue();
  }
  runNextRequest();
}

}  // namespace

void useClock(ClockMode mode, double unixTime) {
  const Nanoseconds before = clock::now();
  clock::setMode(mode, unixTime);
  workList().shift(before, clock::now());
  for (FrameObserver& observer : frameObservers()) observer.nextCall = frameTimeAfter(clock::now());
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

void onMainThreadForRequest(std::function<void()> work) {
  if (clock::mode() == ClockMode::Stepped) return onMainThread(std::move(work));
  requests().push_back(std::move(work));
  wakeMainThread();
}

void runNextRequest() {
  if (requests().empty()) return;
  const std::function<void()> work = std::move(requests().front());
  requests().pop_front();
  {
    const objc::AutoreleasePool pool;
    work();
  }
  drainMainQueue();
}

FrameObserverId addFrameObserver(FrameFunction observer) { return addFrameObserverAt(0, std::move(observer)); }

FrameObserverId addFrameObserverAt(Nanoseconds when, FrameFunction observer) {
  static FrameObserverId last = 0;
  // Subtracts a nanosecond to include a frame at `when` itself, because frameTimeAfter() excludes its argument.
  const Nanoseconds before = std::max(when, clock::now() + 1) - 1;
  frameObservers().push_back({++last, std::move(observer), frameTimeAfter(before)});
  return last;
}

void removeFrameObserver(FrameObserverId observer) {
  std::erase_if(frameObservers(), [observer](const FrameObserver& added) { return added.id == observer; });
}

Nanoseconds frameTimeAfter(Nanoseconds time) {
  std::int64_t frame =
      time / nanosecondsInSecond * framesInSecond + time % nanosecondsInSecond * framesInSecond / nanosecondsInSecond;
  while (timeOfFrame(frame) <= time) ++frame;
  return timeOfFrame(frame);
}

IterationObserverId addIterationObserver(std::function<void()> observer) {
  static IterationObserverId last = 0;
  iterationObservers().push_back({++last, std::move(observer)});
  return last;
}

void removeIterationObserver(IterationObserverId observer) {
  std::erase_if(iterationObservers(), [observer](const IterationObserver& added) { return added.id == observer; });
}

void drainMainQueue() {
  do {
    while (const std::function<void()> work = workList().takeDue(clock::now())) {
      const objc::AutoreleasePool pool;
      work();
    }
    const objc::AutoreleasePool pool;
    for (const IterationObserver& observer : iterationObservers()) observer.call();
  } while (workList().nextTime() <= clock::now());
}

void stepClock(double seconds) {
  const Nanoseconds duration = nanosecondsOf(seconds);
  const Nanoseconds target = duration == never ? clock::now() : saturatingSum(clock::now(), duration);
  if (clock::mode() == ClockMode::Real) {
    // Schedules empty work to wake the main thread at the target time, because otherwise no event might wake it then.
    onMainThreadAt(target, [] {});
    runMainQueueUntil([target] { return clock::now() >= target; });
  } else {
    drainMainQueue();
    stepTo(target);
  }
}

bool mainQueueIsIdle() { return requests().empty() && nextEvent() == never; }

void runMainQueueUntil(const std::function<bool()>& stop) {
  for (runIteration(); !stop(); runIteration())
    sleepUntil(clock::systemTime(requests().empty() ? nextEvent() : clock::now()));
}

}  // namespace foundation
