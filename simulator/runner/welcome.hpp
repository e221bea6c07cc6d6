// The welcome of a live phone: three sample notifications that the user can answer, stop and dismiss.
#pragma once

#include "simulator/runner/session.hpp"

namespace runner {

// Installs the demonstration's data, and schedules the notifications for the first seconds of the main queue. Reports
// an error on standard error and continues without the notifications that it affects. The session must exist while the
// main queue runs. Main thread.
void scheduleWelcome(Session& session);

}  // namespace runner
