#include "simulator/runner/library_inspection.hpp"

#include <dlfcn.h>

#include "simulator/process/process_start.hpp"

namespace runner {

namespace {

template <class Entry>
std::span<const Entry> listOf(const char* symbol) {
  void* library = process::loadedLibrary();
  if (library == nullptr) return {};
  const auto list = reinterpret_cast<const Entry* (*)(std::size_t*)>(dlsym(library, symbol));
  if (list == nullptr) return {};
  std::size_t count = 0;
  const Entry* entries = list(&count);
  return {entries, count};
}

}  // namespace

std::span<const BrimInstalledMethod> installedMethods() {
  return listOf<BrimInstalledMethod>("brim_installed_methods");
}

std::span<const BrimSetting> librarySettings() { return listOf<BrimSetting>("brim_settings"); }

}  // namespace runner
