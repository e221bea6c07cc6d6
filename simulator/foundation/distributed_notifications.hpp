// Distributed notifications as the phone has them where GNUstep's differ: an observer that has ended is left out, a
// daemon that was replaced knows the observers again, and a post that nobody can carry is dropped without a word.
#pragma once

namespace foundation {

// Once, before the process's first observer. Connects to nothing by itself.
void installDistributedNotifications();

// Asks the daemon, which is started where there is none. When the answer is true, what other processes post from now on
// reaches the observers of this one. Main thread.
bool joinDistributedNotifications();

}  // namespace foundation
