#include "simulator/runner/finger.hpp"

#include <cmath>

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/main_queue.hpp"

namespace runner {

namespace {

CGPoint finger;

// Rounds a coordinate to a multiple of a power of two. Sums of rounded coordinates are exact, so two drags have exactly
// the same effect as one drag over the whole distance.
double onGrid(double coordinate) {
  constexpr double gridLinesPerPoint = 1024;
  return std::round(coordinate * gridLinesPerPoint) / gridLinesPerPoint;
}

CGPoint along(CGPoint start, CGPoint distance, double fraction) {
  return {start.x + distance.x * fraction, start.y + distance.y * fraction};
}

}  // namespace

void touch(UITouchPhase phase, CGPoint point) {
  const objc::AutoreleasePool pool;
  finger = {onGrid(point.x), onGrid(point.y)};
  uikit::deliverTouch(phase, finger, foundation::now());
  foundation::drainMainQueue();
}

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
