#include "simulator/uikit/rendering/display_link.hpp"

#include <utility>
#include <vector>

#include "simulator/foundation/clock.hpp"
#include "simulator/foundation/main_queue.hpp"

namespace uikit {

namespace {

std::vector<DisplayLink*>& links() {
  static std::vector<DisplayLink*> existing;
  return existing;
}

// Wakes the process at the next frame. The links are called at the end of the iteration of this frame.
void requestFrame() {
  static bool isFrameRequested = false;
  if (std::exchange(isFrameRequested, true)) return;
  foundation::addFrameObserver([](double) {
    isFrameRequested = false;
    return foundation::FrameDemand::Done;
  });
}

}  // namespace

DisplayLink::DisplayLink(std::function<void()> present)
    : present_(std::move(present)), observation_([this] { isRequested_ = true; }) {
  links().push_back(this);
}

DisplayLink::~DisplayLink() { std::erase(links(), this); }

void DisplayLink::presentIfDue() {
  if (!isRequested_) return;
  const foundation::Nanoseconds now = foundation::clock::now();
  if (now < earliestCall_) return requestFrame();
  isRequested_ = false;
  earliestCall_ = foundation::frameTimeAfter(now);
  present_();
  // Presenting can process input that changes the screen again.
  if (isRequested_) requestFrame();
}

void presentDisplayChanges() {
  for (DisplayLink* link : links()) link->presentIfDue();
}

}  // namespace uikit
