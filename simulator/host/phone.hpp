// The home-screen process from its options to a home screen that waits for notifications.
#pragma once

#include "simulator/foundation/main_queue.hpp"
#include "simulator/host/options.hpp"

namespace host {

// Once, before any other use of Foundation. Throws StartError.
void startPhone(const Options& options, foundation::ClockMode clock);

}  // namespace host
