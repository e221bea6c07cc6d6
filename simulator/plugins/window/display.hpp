// The connection to the display server. Main thread.
#pragma once

#include <functional>

namespace window {

// Starts GTK and connects to the display server. Returns false if no display is available.
bool connectToDisplay();
// Returns the socket of the connection, which GTK owns.
int displayDescriptor();
// Calls the function if using the connection fails. Without an observer, the failure ends the process on some displays.
void observeDisplayErrors(std::function<void()> observer);

}  // namespace window
