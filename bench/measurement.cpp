#include "bench/measurement.hpp"

#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace bench {

namespace {

[[noreturn]] void fail(const char* reason) {
  std::fprintf(stderr, "bench: %s\n", reason);
  std::exit(1);
}

void writeAll(int descriptor, const Figures& figures) {
  const char* bytes = reinterpret_cast<const char*>(figures.data());
  std::size_t remaining = figures.size() * sizeof(double);
  while (remaining > 0) {
    const ssize_t written = write(descriptor, bytes, remaining);
    if (written <= 0) _exit(1);
    bytes += written;
    remaining -= static_cast<std::size_t>(written);
  }
}

Figures readAll(int descriptor) {
  Figures figures;
  double figure = 0;
  while (read(descriptor, &figure, sizeof figure) == static_cast<ssize_t>(sizeof figure)) figures.push_back(figure);
  return figures;
}

}  // namespace

Figures inChildProcess(const std::function<Figures()>& measurement) {
  int ends[2];
  if (pipe(ends) != 0) fail("cannot create a pipe");
  const pid_t child = fork();
  if (child < 0) fail("cannot create a process");
  if (child == 0) {
    close(ends[0]);
    writeAll(ends[1], measurement());
    _exit(0);
  }
  close(ends[1]);
  Figures figures = readAll(ends[0]);
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (status != 0 || figures.empty()) fail("a measurement failed in its child process");
  return figures;
}

double median(Figures figures) {
  const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2);
  std::nth_element(figures.begin(), middle, figures.end());
  return *middle;
}

double processorTime() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double residentMemory() {
  std::ifstream file("/proc/self/statm");
  double total = 0;
  double resident = 0;
  file >> total >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

void report(const char* description, double ratio, double maxRatio) {
  std::printf("%-58s %6.2f   target: at most %.2f%s\n", description, ratio, maxRatio,
              ratio <= maxRatio ? "" : "   MISSED");
}

}  // namespace bench
