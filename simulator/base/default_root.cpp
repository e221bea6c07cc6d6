#include "simulator/base/default_root.hpp"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

namespace base {

namespace {

namespace fs = std::filesystem;

// Returns the folder that the environment variable names. Returns an empty path if the variable is not an absolute
// path, because a relative path would create a folder in the current folder.
fs::path folderInEnvironment(const char* name) {
  const char* const value = std::getenv(name);
  if (value == nullptr || !fs::path(value).is_absolute()) return {};
  return value;
}

fs::path homeFolder() {
  if (fs::path home = folderInEnvironment("HOME"); !home.empty()) return home;
  const passwd* const user = getpwuid(getuid());
  if (user == nullptr || !fs::path(user->pw_dir).is_absolute())
    throw std::runtime_error("the user has no home folder; select a folder with --root, or set HOME");
  return user->pw_dir;
}

}  // namespace

fs::path defaultRoot() {
  const fs::path data = folderInEnvironment("XDG_DATA_HOME");
  return (data.empty() ? homeFolder() / ".local/share" : data) / "brim/root";
}

fs::path demonstrationRoot() { return defaultRoot().parent_path() / "demonstration"; }

}  // namespace base
