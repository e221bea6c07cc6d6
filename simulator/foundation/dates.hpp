// Dates show what the clock in use shows.
#pragma once

namespace foundation {

// Replaces +[NSDate date] and +[NSDate timeIntervalSinceReferenceDate]. Foundation's own waiting does not ask them.
void installDates();

}  // namespace foundation
