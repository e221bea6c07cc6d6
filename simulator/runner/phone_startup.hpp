// The home-screen process from its options to a home screen that waits for notifications.
#pragma once

#include "simulator/foundation/main_queue.hpp"
#include "simulator/runner/options.hpp"

namespace runner {

// Once, before any other use of Foundation. Throws StartError.
void startPhone(const Options& options, foundation::ClockMode clock);

}  // namespace runner
