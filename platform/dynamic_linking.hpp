// Looks up symbols of the running process. Any thread.
#pragma once

#include <dlfcn.h>

// Returns the symbol of the program or of one of its libraries with global symbols. Returns a null pointer if there is
// none.
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
