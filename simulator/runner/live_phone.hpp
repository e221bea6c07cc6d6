// A phone that runs on the real clock and executes the commands of other processes.
#pragma once

#include "simulator/runner/springboard_options.hpp"

namespace runner {

// Starts the phone and runs it until the process receives SIGINT, SIGTERM or SIGHUP, or until the user closes the
// phone's window. Prints a line to standard output when the phone accepts commands. Returns the exit status. A restart
// executes the program again, and the function does not return. Throws StartError. Main thread.
int runLive(const Options& options);

}  // namespace runner
