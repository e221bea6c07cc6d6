// Adapts GNUstep's distributed notification center to the platform's behavior: a deallocated observer is skipped,
// observers are registered again with a daemon that was restarted, and a post without a daemon fails with a message on
// standard error instead of an exception.
#pragma once

namespace foundation {

// Installs the replaced methods. Call it once, before the process adds its first observer. Does not connect to the
// daemon. Main thread.
void installDistributedNotifications();

// Connects to the notification daemon and starts it if none runs. Returns true if notifications that other processes
// post from now on reach the observers of this process. Main thread.
bool connectToNotificationDaemon();

}  // namespace foundation
