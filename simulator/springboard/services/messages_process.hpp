// Launches and ends the process of the Messages app. Main thread.
#pragma once

namespace springboard {

// Starts the app in the background, unless it already runs on this root, and waits until it receives requests. Returns
// whether it receives requests. Waits for only a few seconds, because a broken app must not block the home screen. The
// app ends when the home screen that started it has ended and no other home screen is connected.
bool launchMessages();

// Ends the app if this home screen has started it and no other home screen is connected. Waits up to two seconds.
void endMessages();

}  // namespace springboard
