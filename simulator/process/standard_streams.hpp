// Standard input, output and error of a program. Main thread.
#pragma once

#include <string>

namespace process {

// Opens each standard descriptor that the parent process has closed, because otherwise the next opened file would
// receive its number and the program's output. Reading from or writing to the opened descriptor still fails. Call this
// first in a program.
void reserveStandardDescriptors();

// Prints the text and flushes standard output. Returns the exit status of a program that only prints this text: 0, or 1
// after an error, which is reported on standard error under the program's name.
int printAndExit(const char* program, const std::string& text);

// Returns whether reading standard input has failed. The end of the input is not a failure.
bool failedToReadStandardInput();

}  // namespace process
