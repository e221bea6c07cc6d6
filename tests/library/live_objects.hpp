// Counts the Objective-C objects in the process, with Foundation's debugging functions.
#pragma once

#include <objc/runtime.h>
#include <stdlib.h>

#include <cstddef>
#include <memory>

// Foundation declares these functions in a header that only an Objective-C compiler can read.
extern "C" {
signed char GSDebugAllocationActive(signed char active);
Class* GSDebugAllocationClassList();
int GSDebugAllocationCount(Class counted);
}

namespace test {

// Call once. Objects that already exist are not counted.
inline void startCountingLiveObjects() { GSDebugAllocationActive(1); }

// The number of objects that were created since startCountingLiveObjects() and are not released.
inline std::ptrdiff_t liveObjectCount() {
  std::ptrdiff_t total = 0;
  const std::unique_ptr<Class[], decltype(&free)> classes(GSDebugAllocationClassList(), &free);
  for (const Class* counted = classes.get(); counted != nullptr && *counted != nullptr; ++counted)
    total += GSDebugAllocationCount(*counted);
  return total;
}

}  // namespace test
