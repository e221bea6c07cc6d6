// Launches and ends the process of the Messages app. Main thread.
#pragma once

namespace springboard {

// Starts the app in the background, unless it already runs on this root, and waits until it receives requests. Returns
// whether it does. The wait is limited to a few seconds, because a broken app must not block the home screen. The app
// ends when the home screen that started it has ended and no other home screen is connected.
bool launchMessages();

// Ends the app that this home screen has started, unless another home screen is connected, and waits up to two seconds.
void endMessages();

}  // namespace springboard
