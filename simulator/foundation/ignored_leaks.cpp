#include "simulator/foundation/ignored_leaks.hpp"

#include "objc/autorelease_pool.hpp"
#include "objc/send.hpp"

namespace foundation {

namespace {

constexpr const char* leakingClasses[] = {"NSLocale",       "NSTimeZone", "NSDateFormatter",
                                          "NSUserDefaults", "NSBundle",   "NSFileManager"};

}  // namespace

void initializeLeakingClasses() {
  if (__lsan_disable == nullptr) return;
  const IgnoredLeaks ignored;
  const objc::AutoreleasePool pool;
  for (const char* name : leakingClasses) objc::send<Class, "class">(reinterpret_cast<Class>(objc_getClass(name)));
}

}  // namespace foundation
