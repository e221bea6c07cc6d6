// Looks up symbols of the running process. Any thread.
#pragma once

#include <dlfcn.h>

// Returns the address of the symbol in the program or in a library with global symbols. Returns a null pointer if there
// is no such symbol.
inline void* symbolInProcess(const char* name) {
  // Linux requires a binding mode in this argument; the phone has a default.
#if defined(__APPLE__)
  constexpr int mode = RTLD_GLOBAL;
#else
  constexpr int mode = RTLD_GLOBAL | RTLD_LAZY;
#endif
  void* const program = dlopen(nullptr, mode);
  void* const symbol = dlsym(program, name);
  dlclose(program);
  return symbol;
}
