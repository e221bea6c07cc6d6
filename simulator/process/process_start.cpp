#include "simulator/process/process_start.hpp"

#include <dlfcn.h>

#include <optional>

#include "simulator/base/default_root.hpp"
#include "simulator/foundation/injection_loader.hpp"
#include "simulator/process/root_setup.hpp"

namespace process {

namespace {

// The handle of the library. It is null until the library is loaded. The library is never unloaded.
void* libraryHandle = nullptr;

void throwIfFailed(const std::filesystem::path& root, const std::optional<std::string>& error) {
  if (error)
    throw StartError("the folder " + root.string() + " cannot be used as the root: " + *error +
                     "; select a folder that you can write with --root");
}

}  // namespace

void useRoot(const std::filesystem::path& root, foundation::DefaultsDatabase database) {
  throwIfFailed(root, foundation::useRoot(root, database));
  throwIfFailed(root, prepareRoot(root));
}

void useRoot(const std::filesystem::path& root) {
  if (root.empty()) {
    process::useRoot(base::defaultRoot(), foundation::DefaultsDatabase::OfUser);
  } else {
    process::useRoot(root, foundation::DefaultsDatabase::OfRoot);
  }
}

void loadLibrary(const char* bundleIdentifier) {
  const foundation::LoadOutcome outcome = foundation::injectLibraries(bundleIdentifier);
  if (!outcome.failures.empty()) throw StartError("a library could not be loaded: " + outcome.failures.front());
  for (const std::filesystem::path& library : outcome.loaded) {
    void* handle = dlopen(library.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr && dlsym(handle, "brim_settings") != nullptr) libraryHandle = handle;
  }
}

void* loadedLibrary() { return libraryHandle; }

}  // namespace process
