// Presents the screen when it has changed. Main thread only.
#pragma once

#include <functional>

#include "simulator/foundation/nanoseconds.hpp"
#include "simulator/uikit/rendering/renderer.hpp"

namespace uikit {

// Calls a function after the screen has changed, at most once per frame. The first change since the last frame calls it
// at the end of the current run-loop iteration. A further change calls it at the next frame. The windows are laid out
// before the function is called. While nothing changes, the process does not wake. The function must not create or
// destroy a display link.
class DisplayLink {
 public:
  explicit DisplayLink(std::function<void()> present);
  DisplayLink(const DisplayLink&) = delete;
  DisplayLink& operator=(const DisplayLink&) = delete;
  ~DisplayLink();

 private:
  friend void presentDisplayChanges();
  void presentIfDue();

  std::function<void()> present_;
  bool isRequested_ = false;
  foundation::Nanoseconds earliestCall_ = 0;
  DisplayObservation observation_;
};

// Calls the functions of the display links that are due. Call this at the end of each run-loop iteration, after the
// layout.
void presentDisplayChanges();

}  // namespace uikit
