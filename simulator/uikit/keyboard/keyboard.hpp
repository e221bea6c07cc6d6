// The on-screen keyboard: there while the first responder takes text. Its keys type into it. Main thread.
#pragma once

namespace uikit {

// Brings the keyboard up, takes it away or changes its keys, as the first responder has it. At the end of each turn.
void followFirstResponder();

void defineKeyboard();

}  // namespace uikit
