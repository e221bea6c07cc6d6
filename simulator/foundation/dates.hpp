// Makes NSDate follow the clock of the process, which can be a stepped clock.
#pragma once

namespace foundation {

// Replaces +[NSDate date] and +[NSDate timeIntervalSinceReferenceDate]. The timeouts of the run loop do not use these
// methods, so they still follow real time.
void installDates();

}  // namespace foundation
