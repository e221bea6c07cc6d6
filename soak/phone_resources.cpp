#include "soak/phone_resources.hpp"

#include <malloc.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "tests/library/live_objects.hpp"

namespace soak {

namespace {

namespace fs = std::filesystem;

double privateDirtyBytes() {
  constexpr double kilobyte = 1024;
  std::ifstream file("/proc/self/smaps_rollup");
  for (std::string word; file >> word;) {
    double kilobytes = 0;
    if (word == "Private_Dirty:" && file >> kilobytes) return kilobytes * kilobyte;
  }
  throw std::runtime_error("/proc/self/smaps_rollup does not contain the size of the private modified memory");
}

std::size_t entryCount(const char* folder) {
  std::size_t count = 0;
  for ([[maybe_unused]] const fs::directory_entry& entry : fs::directory_iterator(folder)) ++count;
  return count;
}

std::string increase(const std::string& name, double before, double after) {
  return name + ": " + std::to_string(static_cast<long>(before)) + " -> " + std::to_string(static_cast<long>(after));
}

}  // namespace

void startCountingObjects() { test::startCountingLiveObjects(); }

Resources measureResources() {
  malloc_trim(0);
  return {test::liveObjectsByClass(), privateDirtyBytes(), entryCount("/proc/self/fd"), entryCount("/proc/self/task")};
}

std::vector<std::string> increasesBetween(const Resources& before, const Resources& after, double maxMemoryGrowth) {
  std::vector<std::string> increases;
  for (const auto& [name, count] : after.objects) {
    const auto found = before.objects.find(name);
    const long previous = found == before.objects.end() ? 0 : found->second;
    if (count > previous)
      increases.push_back(increase("objects of " + name, static_cast<double>(previous), static_cast<double>(count)));
  }
  if (after.memory > before.memory + maxMemoryGrowth)
    increases.push_back(increase("bytes of private memory", before.memory, after.memory));
  const auto compareCounts = [&increases](const char* name, std::size_t first, std::size_t last) {
    if (last > first) increases.push_back(increase(name, static_cast<double>(first), static_cast<double>(last)));
  };
  compareCounts("file descriptors", before.descriptors, after.descriptors);
  compareCounts("threads", before.threads, after.threads);
  return increases;
}

}  // namespace soak
