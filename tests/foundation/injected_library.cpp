// Tells that it has been mapped, as the phone's libraries do: from its constructor.
#include <cstdlib>

namespace {

[[gnu::constructor]] void tellOfArrival() { setenv("BRIM_TEST_INJECTED", "arrived", 1); }

}  // namespace
