#include "simulator/base/installation.hpp"

#include <dlfcn.h>

#include <cstdlib>

namespace base {

namespace {

namespace fs = std::filesystem;

std::string environmentValue(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

Installation installation() {
  Dl_info library = {};
  dladdr(reinterpret_cast<const void*>(&installation), &library);
  const fs::path binaries = fs::absolute(library.dli_fname).parent_path();
  const fs::path build = binaries.parent_path();
  return {binaries / "libBrim.so", build / "root" / assetBundlePath, build / "simulator/assets", binaries / "messages",
          build / "simulator/demonstration"};
}

fs::path defaultRoot() {
  const std::string data = environmentValue("XDG_DATA_HOME");
  if (!data.empty()) return fs::path(data) / "brim/root";
  return fs::path(environmentValue("HOME")) / ".local/share/brim/root";
}

fs::path demonstrationRoot() { return defaultRoot().parent_path() / "demonstration"; }

}  // namespace base
