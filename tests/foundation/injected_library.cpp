// A library for the tests of the injection loader. Its constructor sets an environment variable, which shows that the
// library was loaded.
#include <cstdlib>

namespace {

[[gnu::constructor]] void reportLoading() { setenv("BRIM_TEST_INJECTED", "loaded", 1); }

}  // namespace
