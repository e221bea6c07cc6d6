#include "simulator/foundation/plugin.hpp"

#include <dlfcn.h>

#include <cstdio>
#include <filesystem>

namespace foundation {

namespace {

std::filesystem::path besideThisLibrary(const char* file) {
  Dl_info here = {};
  dladdr(reinterpret_cast<const void*>(&pluginFunction), &here);
  return std::filesystem::absolute(here.dli_fname).parent_path() / file;
}

}  // namespace

void* pluginFunction(const char* plugin, const char* function) {
  void* const handle = dlopen(besideThisLibrary(plugin).c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const found = handle == nullptr ? nullptr : dlsym(handle, function);
  if (found == nullptr) std::fprintf(stderr, "cannot load a plugin of the simulator: %s\n", dlerror());
  return found;
}

}  // namespace foundation
