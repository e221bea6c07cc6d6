#include "simulator/foundation/classes.hpp"

#include "simulator/foundation/dates.hpp"
#include "simulator/foundation/deallocation.hpp"
#include "simulator/foundation/preferences.hpp"
#include "simulator/foundation/root.hpp"

namespace foundation {

void registerClasses() {
  installDeallocation();
  installDates();
  installPlatformPaths();
  defineHBPreferences();
}

}  // namespace foundation
