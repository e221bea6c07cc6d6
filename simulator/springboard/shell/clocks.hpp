// The clocks of the status bar and the lock screen. Main thread.
#pragma once

namespace springboard {

// Updates the clocks if the minute has changed. It is cheap to call after every script command, because it does nothing
// within the same minute.
void refreshClocks();

}  // namespace springboard
