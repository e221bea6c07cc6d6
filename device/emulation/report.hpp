// Reports to the tests what the library did in this process: which of its methods were called, and which narrow
// integers were not extended. If the environment variable BRIM_REPORT names a folder, the lines are appended to a file
// in this folder. The name of the file is the process identifier. Without the variable, nothing is reported. Any
// thread.
#pragma once

#include <string>

namespace emulation {

bool isReporting();

// Appends the line unless it has been reported before.
void report(const std::string& line);

// Sets the name of the phone's file that this shared library loads. The default is "Brim.dylib".
void setFileName(const char* name);

// Prints the name of the file and the reason for which it cannot run, and ends the process.
[[noreturn]] void fail(const std::string& reason);

}  // namespace emulation
