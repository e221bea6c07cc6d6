// What the library did in this process, for the tests: which of its methods were called, and which narrow integers were
// not extended. The environment variable BRIM_REPORT names a folder; the lines are appended to a file there, whose name
// is the number of the process. Nothing is reported without the variable. Any thread.
#pragma once

#include <string>

namespace emulation {

bool isReporting();

// Appends the line unless it was reported before.
void report(const std::string& line);

// The name of the phone's file that this shared library loads. "Brim.dylib" if it is never set.
void setFileName(const char* name);

// Prints the name of the file and the reason for which it cannot run, and ends the process.
[[noreturn]] void fail(const std::string& reason);

}  // namespace emulation
