// The close button of a long look: a cross on a disc. Main thread.
#pragma once

#include "platform/ui_control.hpp"

namespace springboard {

// Creates the button. The caller sets its frame. The whole frame accepts touches; the disc is at its center.
objc::Ref<UIControl> makeCloseButton();

void defineCloseButton();

}  // namespace springboard
