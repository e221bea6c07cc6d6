// Measures the resources that the process uses. Main thread only.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace soak {

struct Resources {
  // For each Objective-C class, the number of objects that were created since startCountingObjects() and have not been
  // deallocated.
  std::map<std::string, long> objects;
  // Private modified memory that the kernel has assigned to the process, in bytes. Memory that the allocator can return
  // to the kernel is returned before the measurement.
  double memory = 0;
  std::size_t descriptors = 0;
  std::size_t threads = 0;
};

// Call once, after Foundation has been started.
void startCountingObjects();

// Throws std::runtime_error if the kernel does not provide the values.
Resources measureResources();

// Returns one line for each resource that has increased. Memory can increase by `maxMemoryGrowth` bytes.
std::vector<std::string> increasesBetween(const Resources& before, const Resources& after, double maxMemoryGrowth);

}  // namespace soak
