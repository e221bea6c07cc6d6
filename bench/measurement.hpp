// Runs measurements in child processes and reports their results.
#pragma once

#include <functional>
#include <vector>

namespace bench {

// The results of one measurement. Each measurement defines their order and units.
using Figures = std::vector<double>;

// Runs the measurement in a child process and returns its figures. If the measurement fails, prints an error and exits
// with status 1.
Figures inChildProcess(const std::function<Figures()>& measurement);

// Returns the median of at least one figure. For an even number of figures, this is the higher of the two middle
// figures.
double median(Figures figures);

// Returns the processor time that this process has used, in seconds.
double processorTime();
// Returns the resident memory of this process, in bytes.
double residentMemory();

// Prints a ratio and its target, `maxRatio`. Marks the line as MISSED if the ratio is above the target.
void report(const char* description, double ratio, double maxRatio);

}  // namespace bench
