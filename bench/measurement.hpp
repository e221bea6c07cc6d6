// What a measurement gives back, and running one in a process of its own: a phone belongs to its process.
#pragma once

#include <functional>
#include <vector>

namespace bench {

// Figures of one measurement, in the order in which it took them.
using Figures = std::vector<double>;

// Runs the measurement in a child process and waits for its figures. Ends the program with a message where it fails.
Figures inProcessOfItsOwn(const std::function<Figures()>& measurement);

double median(Figures figures);

// Seconds of processor time that this process has used.
double processorTime();
// Bytes of memory that this process holds.
double residentMemory();

// One line of the report: a ratio, and what it aims at.
void report(const char* what, double ratio, double aim);

}  // namespace bench
