// Symbols of the running program.
#pragma once

#include <dlfcn.h>

// Opening the running program itself for looking symbols up. The phone's linker binds lazily unless told otherwise,
// Linux's refuses to be left without a choice.
#if defined(__APPLE__)
inline constexpr int globalSymbols = RTLD_GLOBAL;
#else
inline constexpr int globalSymbols = RTLD_GLOBAL | RTLD_LAZY;
#endif
