// Signals that a process of the phone handles.
#pragma once

namespace process {

// Makes SIGINT, SIGTERM and SIGHUP request the termination of the process and wake its main thread.
void handleTerminationSignals();
// Returns whether one of these signals has been received. Any thread.
bool isTerminationRequested();

// Makes a write to a closed pipe or beyond a size limit fail with an error. By default, a signal would end the process.
void ignoreWriteSignals();

}  // namespace process
