// The on-screen keyboard. It is shown while the first responder accepts text, and its keys insert text into that
// responder. Main thread only.
#pragma once

namespace uikit {

// Shows or hides the keyboard and updates its keys, according to the first responder. Call this at the end of each
// run-loop iteration.
void updateKeyboard();

void defineKeyboard();

}  // namespace uikit
