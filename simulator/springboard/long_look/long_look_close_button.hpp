// The button that closes a long look: a cross on a disc.
#pragma once

#include "platform/ui_control.hpp"

namespace springboard {

// Takes touches wherever it is; the disc is in its middle.
objc::Ref<UIControl> makeCloseButton();

void defineCloseButton();

}  // namespace springboard
