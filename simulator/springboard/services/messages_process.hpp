// The Messages app as a process of its own, which runs in the background once it has been asked for.
#pragma once

namespace springboard {

// Starts the app suspended, unless it runs on this root already, and waits until it hears requests: seconds at most, so
// that an app that does not work leaves the home screen going. The answer is whether it hears them. The app ends with
// the home screen that started it, or with the last that uses it. Main thread.
bool launchMessages();

// Ends the app that this home screen has started, unless another one uses it, and waits a moment for its end.
void endMessages();

}  // namespace springboard
