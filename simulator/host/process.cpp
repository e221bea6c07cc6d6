#include "simulator/host/process.hpp"

#include <dlfcn.h>

#include <optional>

#include "simulator/foundation/injection_loader.hpp"
#include "simulator/host/root.hpp"

namespace host {

namespace {

// Null until it is mapped; it stays mapped.
void* libraryHandle = nullptr;

void stopOn(const std::optional<std::string>& failure) {
  if (failure) throw StartError(*failure);
}

template <class Entry>
std::span<const Entry> listOf(const char* symbol) {
  if (libraryHandle == nullptr) return {};
  const auto list = reinterpret_cast<const Entry* (*)(std::size_t*)>(dlsym(libraryHandle, symbol));
  if (list == nullptr) return {};
  std::size_t count = 0;
  const Entry* entries = list(&count);
  return {entries, count};
}

}  // namespace

void useRoot(const std::filesystem::path& root, foundation::DefaultsDatabase database) {
  stopOn(foundation::useRoot(root, database));
  stopOn(prepareRoot(root));
}

void useRoot(const std::filesystem::path& chosen) {
  if (chosen.empty()) {
    host::useRoot(defaultRoot(), foundation::DefaultsDatabase::OfUser);
  } else {
    host::useRoot(chosen, foundation::DefaultsDatabase::OfRoot);
  }
}

void mapLibrary(const char* bundleIdentifier) {
  const foundation::LoadOutcome outcome = foundation::injectLibraries(bundleIdentifier);
  if (!outcome.failures.empty()) throw StartError("a library could not be mapped: " + outcome.failures.front());
  for (const std::filesystem::path& library : outcome.loaded) {
    void* handle = dlopen(library.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr && dlsym(handle, "brim_settings") != nullptr) libraryHandle = handle;
  }
}

std::span<const BrimInstalledMethod> installedMethods() {
  return listOf<BrimInstalledMethod>("brim_installed_methods");
}

std::span<const BrimSetting> librarySettings() { return listOf<BrimSetting>("brim_settings"); }

}  // namespace host
