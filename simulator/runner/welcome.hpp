// The welcome of a live phone: three sample notifications that the user can answer, stop and dismiss.
#pragma once

#include "simulator/runner/session.hpp"

namespace runner {

// Installs the demonstration's data, and schedules the notifications for the first seconds after the start. If an error
// occurs, prints it to standard error and omits the affected notifications. The session must exist while the main queue
// runs. Main thread.
void scheduleWelcome(Session& session);

}  // namespace runner
