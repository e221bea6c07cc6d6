// Looks up symbols of the running process. Any thread.
#pragma once

#include <dlfcn.h>

// The mode argument of dlopen for a null path, which stands for the running process. Linux requires a binding mode in
// this argument; the phone has a default.
#if defined(__APPLE__)
inline constexpr int globalSymbolsMode = RTLD_GLOBAL;
#else
inline constexpr int globalSymbolsMode = RTLD_GLOBAL | RTLD_LAZY;
#endif
