// Runs measurements in child processes and reports their results.
#pragma once

#include <functional>
#include <vector>

namespace bench {

// The results of one measurement, in order.
using Figures = std::vector<double>;

// Runs the measurement in a child process and returns its figures. On failure, exits the program with a message.
Figures inChildProcess(const std::function<Figures()>& measurement);

double median(Figures figures);

// The processor time that this process has used, in seconds.
double processorTime();
// The resident memory of this process, in bytes.
double residentMemory();

// Prints a ratio, its target, and whether the target was missed.
void report(const char* description, double ratio, double maxRatio);

}  // namespace bench
