// Starts the home-screen process.
#pragma once

#include "simulator/foundation/main_queue.hpp"
#include "simulator/runner/springboard_options.hpp"

namespace runner {

// Sets up the root and the environment, registers the classes, loads the library and starts the home screen. Call this
// once, before any other use of Foundation. Throws StartError. Main thread.
void startPhone(const Options& options, foundation::ClockMode clock);

}  // namespace runner
