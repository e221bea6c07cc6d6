// Looking up symbols of the running process.
#pragma once

#include <dlfcn.h>

// The mode to pass to dlopen together with a null path, in order to look up symbols of the running process. Linux
// requires a binding mode; the phone has a default.
#if defined(__APPLE__)
inline constexpr int globalSymbolsMode = RTLD_GLOBAL;
#else
inline constexpr int globalSymbolsMode = RTLD_GLOBAL | RTLD_LAZY;
#endif
