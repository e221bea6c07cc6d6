// Handles the signals of a process of the phone, and requests to terminate the process.
#pragma once

namespace process {

// Makes SIGINT, SIGTERM and SIGHUP request the termination of the process and wake its main thread.
void handleTerminationSignals();
// Requests the termination of the process and wakes its main thread. Any thread.
void requestTermination();
// Returns whether the termination of the process has been requested. Any thread.
bool isTerminationRequested();

// Makes a write to a closed pipe or beyond a size limit fail with an error. By default, a signal would end the process.
void ignoreWriteSignals();

}  // namespace process
