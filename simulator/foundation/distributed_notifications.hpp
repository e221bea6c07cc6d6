// Adapts GNUstep's distributed notification center to the behavior of the platform. A deallocated observer is skipped.
// Observers are registered again with a daemon that was restarted. If no daemon is available, a post prints an error to
// standard error instead of raising an exception.
#pragma once

namespace foundation {

// Installs the replaced methods. Call this once, before the process adds its first observer. This function does not
// connect to the daemon. Main thread.
void installDistributedNotifications();

// Connects to the notification daemon and starts it if it is not running. Returns true if the observers of this process
// will receive all notifications that other processes post after the call. Main thread.
bool connectToNotificationDaemon();

}  // namespace foundation
