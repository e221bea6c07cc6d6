// Makes NSDate follow the process's clock, which can be stepped.
#pragma once

namespace foundation {

// Replaces +[NSDate date] and +[NSDate timeIntervalSinceReferenceDate]. The run loop's own timeouts do not use these
// methods and stay on real time.
void installDates();

}  // namespace foundation
