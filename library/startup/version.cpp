#include "library/startup/inspection.hpp"

extern "C" [[gnu::visibility("default")]] const char* brim_version() { return BRIM_VERSION; }
