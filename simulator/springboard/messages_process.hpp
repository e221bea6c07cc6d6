// The Messages app as a process of its own, which runs in the background once it has been asked for.
#pragma once

namespace springboard {

// Starts the app suspended, unless it runs on this root already, and waits until it hears requests: seconds at most, so
// that an app that does not work leaves the home screen going. The answer is whether it hears them. The app ends with
// the home screen that started it. Main thread.
bool launchMessages();

}  // namespace springboard
