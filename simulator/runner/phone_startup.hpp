// Starts the home-screen process.
#pragma once

#include "simulator/foundation/descriptor.hpp"
#include "simulator/runner/springboard_options.hpp"

namespace runner {

// Sets up the root and the environment, registers the classes, loads the library and starts the home screen. Call this
// once, before any other use of Foundation. Throws StartError, for example if a live phone uses the root. If this phone
// is live, returns the lock that prevents other home screens from using the root. `inheritedLock` is that lock if this
// process already owns it. Otherwise, the descriptor is closed. Main thread.
foundation::FileDescriptor startPhone(const Options& options, foundation::FileDescriptor inheritedLock);

}  // namespace runner
