// UISlider: a control that selects a value from a range. The user drags its thumb. Main thread only.
#pragma once

#include "simulator/uikit/controls/control.hpp"

namespace uikit {

// The values of a slider. If there are segments, which have equal lengths, the thumb stops only at their ends.
struct SliderRange {
  double min = 0;
  double max = 1;
  int segments = 0;  // 0 if the thumb can stop everywhere
};

// Returns the nearest value at which the thumb can stop.
double nearestStop(const SliderRange& range, double value);

void defineSlider();

}  // namespace uikit

class UISlider : public objc::Interface<"UISlider", UIControl> {
 public:
  // Sets the range. Its minimum must be less than its maximum.
  void setRange(const uikit::SliderRange& range);
  double value() const { return objc::send<double, "_value">(this); }
  // Moves the thumb to the nearest possible position. Sends no action. Does nothing while the user drags the thumb.
  void setValue(double value) { objc::send<void, "_setValue:">(this, value); }
};
