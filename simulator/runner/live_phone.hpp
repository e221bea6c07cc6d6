// A phone that runs on the real clock and executes the commands of other processes.
#pragma once

#include "simulator/runner/session.hpp"

namespace runner {

// Runs the phone until the process receives SIGINT, SIGTERM or SIGHUP, or until the user closes the phone's window.
// Prints a line to standard output when the phone accepts commands. Returns the exit status. Main thread.
int runLive(Session& session, const Options& options);

}  // namespace runner
