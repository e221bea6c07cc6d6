// UISwitch: a control that is on or off. A tap changes it. Main thread only.
#pragma once

#include "simulator/uikit/controls/control.hpp"

class UISwitch : public objc::Interface<"UISwitch", UIControl> {
 public:
  bool isOn() const { return objc::send<bool, "isOn">(this); }
  // Changes the switch without an animation. Sends no action.
  void setOn(bool on) { objc::send<void, "setOn:animated:">(this, on, false); }
};

namespace uikit {

// The size of every switch, in points. The size of its frame has no effect.
inline constexpr CGSize switchSize = {51, 31};

// A tap sends the action for valueChanged after the switch has changed.
void defineSwitch();

}  // namespace uikit
