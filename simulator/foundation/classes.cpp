#include "simulator/foundation/classes.hpp"

#include "simulator/foundation/dates.hpp"
#include "simulator/foundation/deallocation.hpp"

namespace foundation {

void registerClasses() {
  installDeallocation();
  installDates();
}

}  // namespace foundation
