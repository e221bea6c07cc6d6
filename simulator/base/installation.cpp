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
  Dl_info here = {};
  dladdr(reinterpret_cast<const void*>(&installation), &here);
  const fs::path libraries = fs::absolute(here.dli_fname).lexically_normal().parent_path();
  const fs::path prefix = libraries.parent_path().parent_path();
  const fs::path data = prefix / "share/brim";
  return {libraries / "libBrim.so", data / "Assets.bundle", data / "artwork",
          prefix / "bin/messages",  data / "demonstration", data / "BrimPreferences.bundle"};
}

fs::path defaultRoot() {
  const std::string data = environmentValue("XDG_DATA_HOME");
  if (!data.empty()) return fs::path(data) / "brim/root";
  return fs::path(environmentValue("HOME")) / ".local/share/brim/root";
}

fs::path demonstrationRoot() { return defaultRoot().parent_path() / "demonstration"; }

}  // namespace base
