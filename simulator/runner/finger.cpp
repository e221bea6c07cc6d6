#include "simulator/runner/finger.hpp"

#include <cmath>

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/touch/touch.hpp"

namespace runner {

namespace {

CGPoint finger;

// Two distances add up to exactly their sum wherever the finger went down.
double onGrid(double coordinate) {
  constexpr double gridLinesInAPoint = 1024;
  return std::round(coordinate * gridLinesInAPoint) / gridLinesInAPoint;
}

void touch(UITouchPhase phase, CGPoint point) {
  const objc::AutoreleasePool pool;
  finger = {onGrid(point.x), onGrid(point.y)};
  uikit::deliverTouch(phase, finger, foundation::now());
  foundation::drainMainQueue();
}

CGPoint along(CGPoint start, CGPoint distance, double share) {
  return {start.x + distance.x * share, start.y + distance.y * share};
}

}  // namespace

void tapAt(CGPoint point) {
  touch(UITouchPhase::Began, point);
  touch(UITouchPhase::Ended, point);
}

bool isFingerHeld() { return uikit::isFingerDown(); }

void drag(CGPoint start, CGPoint distance, int steps, DragEnd end) {
  if (isFingerHeld()) {
    start = finger;
  } else {
    touch(UITouchPhase::Began, start);
    start = finger;
  }
  for (int step = 1; step <= steps; ++step)
    touch(UITouchPhase::Moved, along(start, distance, static_cast<double>(step) / steps));
  if (end == DragEnd::Release) touch(UITouchPhase::Ended, finger);
  if (end == DragEnd::Cancel) touch(UITouchPhase::Cancelled, finger);
}

}  // namespace runner
