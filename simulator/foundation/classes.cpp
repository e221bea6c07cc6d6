#include "simulator/foundation/classes.hpp"

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/dates.hpp"
#include "simulator/foundation/deallocation.hpp"
#include "simulator/foundation/digest.hpp"
#include "simulator/foundation/distributed_notifications.hpp"
#include "simulator/foundation/ignored_leaks.hpp"
#include "simulator/foundation/locale.hpp"
#include "simulator/foundation/localized_strings.hpp"
#include "simulator/foundation/preferences.hpp"
#include "simulator/foundation/property_list_parsing.hpp"
#include "simulator/foundation/resource_paths.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/foundation/string_comparison.hpp"
#include "simulator/foundation/string_encoding.hpp"

namespace foundation {

void registerClasses() {
  const IgnoredLeaks ignored;
  initializeLeakingClasses();
  makeRunLoopWithoutHousekeeping();
  const objc::AutoreleasePool pool;
  installDeallocationHooks();
  installDates();
  installPlatformPaths();
  installLocale();
  installLocalizedStrings();
  installResourcePaths();
  installPropertyListParsing();
  installDigests();
  installStringEncoding();
  installStringComparison();
  installDistributedNotifications();
  defineHBPreferences();
}

}  // namespace foundation
