// What the library did in this process, for the tests: which of its methods were called, and which narrow integers were
// not extended. The environment variable BRIM_REPORT names a folder; the lines are appended to a file there, whose name
// is the number of the process. Nothing is reported without the variable. Any thread.
#pragma once

#include <string>

namespace emulation {

bool isReporting();

// Appends the line unless it was reported before.
void report(const std::string& line);

// Prints the reason for which the library cannot run and ends the process.
[[noreturn]] void fail(const std::string& reason);

}  // namespace emulation
