#include "tests/library/live_objects.hpp"

#include <objc/runtime.h>
#include <stdlib.h>

#include <memory>

// Foundation's debugging functions, whose header is Objective-C.
extern "C" {
signed char GSDebugAllocationActive(signed char active);
Class* GSDebugAllocationClassList();
int GSDebugAllocationCount(Class counted);
}

namespace test {

void countLiveObjects() { GSDebugAllocationActive(1); }

std::ptrdiff_t liveObjects() {
  std::ptrdiff_t total = 0;
  const std::unique_ptr<Class[], decltype(&free)> classes(GSDebugAllocationClassList(), &free);
  for (const Class* counted = classes.get(); counted != nullptr && *counted != nullptr; ++counted)
    total += GSDebugAllocationCount(*counted);
  return total;
}

}  // namespace test
