// Counts the Objective-C objects in the process, with Foundation's debugging functions.
#pragma once

#include <objc/runtime.h>
#include <stdlib.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>

// Foundation declares these functions in a header that only an Objective-C compiler can read.
extern "C" {
signed char GSDebugAllocationActive(signed char active);
Class* GSDebugAllocationClassList();
int GSDebugAllocationCount(Class counted);
}

namespace test {

// Call once. Objects that already exist are not counted.
inline void startCountingLiveObjects() { GSDebugAllocationActive(1); }

// Returns, for each class, the number of objects that were created since startCountingLiveObjects() and have not been
// released.
inline std::map<std::string, long> liveObjectsByClass() {
  std::map<std::string, long> counts;
  const std::unique_ptr<Class[], decltype(&free)> classes(GSDebugAllocationClassList(), &free);
  for (const Class* counted = classes.get(); counted != nullptr && *counted != nullptr; ++counted)
    counts[class_getName(*counted)] = GSDebugAllocationCount(*counted);
  return counts;
}

// Returns the sum of the numbers that liveObjectsByClass() returns.
inline std::ptrdiff_t liveObjectCount() {
  std::ptrdiff_t total = 0;
  for (const auto& [name, count] : liveObjectsByClass()) total += count;
  return total;
}

}  // namespace test
