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

// Never destroyed: other threads may still post while the process ends.
WorkList& workList() {
  static WorkList& list = *new WorkList;
  return list;
}

// What waits until real time is let pass.
WorkList& outsideWork() {
  static WorkList& list = *new WorkList;
  return list;
}

std::list<FrameObserver>& frameObservers() {
  static std::list<FrameObserver>& observers = *new std::list<FrameObserver>;
  return observers;
}

std::function<void()>& endOfTurnObserver() {
  static std::function<void()>& observer = *new std::function<void()>([] {});
  return observer;
}

// Frames lie on one grid, that of the screen: frame n is shown n sixtieths after the clock's zero, rounded to
// nanoseconds.
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

// The next frame that observers wait for; meaningful while there are observers.
std::int64_t nextFrame = 0;

Nanoseconds nextFrameTime() { return frameObservers().empty() ? never : timeOfFrame(nextFrame); }

void askObservers(Nanoseconds time) {
  const objc::AutoreleasePool pool;
  std::list<FrameObserver>& observers = frameObservers();
  // Those that are added meanwhile come behind the present ones and wait for the next frame.
  std::size_t remaining = observers.size();
  for (auto observer = observers.begin(); remaining > 0; --remaining) {
    const FrameDemand demand = (*observer)(secondsOf(time));
    observer = demand == FrameDemand::More ? std::next(observer) : observers.erase(observer);
  }
}

void runFrame(Nanoseconds time) {
  nextFrame = frameAfter(time);
  askObservers(time);
}

Nanoseconds nextEvent() { return std::min(workList().nextTime(), nextFrameTime()); }

void stepTo(Nanoseconds target) {
  for (Nanoseconds event = nextEvent(); event <= target; event = nextEvent()) {
    clock::moveTo(std::max(event, clock::now()));
    drainMainQueue();
    if (nextFrameTime() <= clock::now()) runFrame(clock::now());
    drainMainQueue();
  }
  clock::moveTo(target);
}

void turn() {
  drainMainQueue();
  const Nanoseconds time = clock::now();
  if (nextFrameTime() <= time) runFrame(time);
}

}  // namespace

void useClock(ClockMode mode, double unixTime) {
  const Nanoseconds before = clock::now();
  clock::choose(mode, unixTime);
  workList().shift(before, clock::now());
  nextFrame = frameAfter(clock::now());
}

void onMainThread(std::function<void()> work) {
  workList().add(std::move(work));
  wakeMainThread();
}

void onMainThreadAfter(double seconds, std::function<void()> work) {
  onMainThreadAt(later(clock::now(), nanosecondsOf(seconds)), std::move(work));
}

void onMainThreadAt(Nanoseconds when, std::function<void()> work) {
  workList().addAt(when, std::move(work));
  wakeMainThread();
}

void onMainThreadFromOutside(std::function<void()> work) {
  (clock::mode() == ClockMode::Stepped ? outsideWork() : workList()).add(std::move(work));
  wakeMainThread();
}

void runExternalWork() {
  while (std::function<void()> work = outsideWork().takeDue(0)) workList().add(std::move(work));
}

void addFrameObserver(FrameObserver observer) {
  if (frameObservers().empty()) nextFrame = frameAfter(clock::now());
  frameObservers().push_back(std::move(observer));
}

void observeEndOfTurn(std::function<void()> observer) { endOfTurnObserver() = std::move(observer); }

void drainMainQueue() {
  do {
    while (const std::function<void()> work = workList().takeDue(clock::now())) {
      const objc::AutoreleasePool pool;
      work();
    }
    const objc::AutoreleasePool pool;
    endOfTurnObserver()();
  } while (workList().nextTime() <= clock::now());
}

void stepClock(double seconds) {
  const Nanoseconds duration = nanosecondsOf(seconds);
  const Nanoseconds target = duration == never ? clock::now() : later(clock::now(), duration);
  if (clock::mode() == ClockMode::Real) {
    // Nothing else may be there to wake it.
    onMainThreadAt(target, [] {});
    runMainQueueUntil([target] { return clock::now() >= target; });
  } else {
    drainMainQueue();
    stepTo(target);
  }
}

bool mainQueueIsIdle() { return nextEvent() == never; }

void runMainQueueUntil(const std::function<bool()>& stop) {
  for (turn(); !stop(); turn()) sleepUntil(clock::systemTime(nextEvent()));
}

}  // namespace foundation
