#include "simulator/base/installation.hpp"

#include <dlfcn.h>

namespace base {

namespace fs = std::filesystem;

Installation installation() {
  Dl_info here = {};
  dladdr(reinterpret_cast<const void*>(&installation), &here);
  const fs::path libraries = fs::absolute(here.dli_fname).lexically_normal().parent_path();
  const fs::path prefix = libraries.parent_path().parent_path();
  const fs::path data = prefix / "share/brim";
  return {libraries / "libBrim.so", data / "Assets.bundle",          data / "artwork", prefix / "bin/messages",
          data / "demonstration",   data / "BrimPreferences.bundle", data / "page"};
}

}  // namespace base
