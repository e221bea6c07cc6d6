#include "simulator/host/finger.hpp"

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/touch.hpp"

namespace host {

namespace {

CGPoint finger;

void touch(UITouchPhase phase, CGPoint point) {
  const objc::AutoreleasePool pool;
  finger = point;
  uikit::deliverTouch(phase, point, foundation::now());
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
  }
  for (int step = 1; step <= steps; ++step)
    touch(UITouchPhase::Moved, along(start, distance, static_cast<double>(step) / steps));
  if (end == DragEnd::Release) touch(UITouchPhase::Ended, finger);
  if (end == DragEnd::Cancel) touch(UITouchPhase::Cancelled, finger);
}

}  // namespace host
