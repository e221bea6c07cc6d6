#include "simulator/host/root.hpp"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <system_error>

#include "simulator/foundation/regular_file.hpp"
#include "simulator/foundation/root.hpp"

namespace host {

namespace {

namespace fs = std::filesystem;

constexpr const char* assetBundlePath = "Library/Application Support/Brim/Assets.bundle";
constexpr const char* endpointsFile = "endpoints.plist";
constexpr std::size_t largestEndpoints = 1 << 20;
constexpr const char* libraryFolder = "Library/MobileSubstrate/DynamicLibraries";
constexpr const char* folders[] = {
    "Library/Application Support/Brim",      libraryFolder,
    "var/mobile/Containers/Shared/AppGroup", "var/mobile/Containers/Data/Application",
    "var/mobile/Library/Preferences",
};

constexpr const char* libraryFilter = R"({
  Filter = {
    Bundles = ("com.apple.springboard", "com.apple.MobileSMS");
  };
}
)";

std::string environmentValue(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// Makes something under another name and puts it in place: another process of the same root may be starting.
void putInPlace(const fs::path& path, const std::function<void(const fs::path& unfinished)>& make) {
  const fs::path unfinished = path.native() + "." + std::to_string(getpid());
  make(unfinished);
  fs::rename(unfinished, path);
}

// A link follows the build in use; what is no link is the user's own and stays.
void linkTo(const fs::path& target, const fs::path& link) {
  const bool isLink = fs::is_symlink(link);
  if (!fs::exists(target) || (fs::exists(link) && !isLink) || (isLink && fs::read_symlink(link) == target)) return;
  putInPlace(link, [&target](const fs::path& unfinished) { fs::create_symlink(target, unfinished); });
}

void writeWhereMissing(const fs::path& path, const std::string& text) {
  if (fs::exists(path)) return;
  putInPlace(path, [&](const fs::path& unfinished) {
    std::ofstream file(unfinished);
    file << text;
    file.close();
    if (!file) throw fs::filesystem_error("cannot write", path, std::make_error_code(std::errc::io_error));
  });
}

void prepareAssetBundle(const fs::path& built, const fs::path& bundle) {
  if (fs::is_symlink(bundle)) fs::remove(bundle);
  fs::create_directories(bundle);
  for (const auto& entry : fs::directory_iterator(built))
    if (entry.path().filename() != endpointsFile) linkTo(entry.path(), bundle / entry.path().filename());
  // Only the demonstration's are a link.
  if (fs::is_symlink(bundle / endpointsFile)) fs::remove(bundle / endpointsFile);
  if (fs::exists(bundle / endpointsFile)) return;
  putInPlace(bundle / endpointsFile,
             [&](const fs::path& unfinished) { fs::copy_file(built / endpointsFile, unfinished); });
}

}  // namespace

Installation installation() {
  Dl_info here = {};
  dladdr(reinterpret_cast<const void*>(&installation), &here);
  const fs::path libraries = fs::absolute(here.dli_fname).lexically_normal().parent_path();
  const fs::path prefix = libraries.parent_path().parent_path();
  const fs::path data = prefix / "share/brim";
  return {libraries / "libBrim.so", data / "Assets.bundle", data / "artwork", prefix / "bin/messages",
          data / "demonstration"};
}

fs::path defaultRoot() {
  const std::string data = environmentValue("XDG_DATA_HOME");
  if (!data.empty()) return fs::path(data) / "brim/root";
  return fs::path(environmentValue("HOME")) / ".local/share/brim/root";
}

fs::path demonstrationRoot() { return defaultRoot().parent_path() / "demonstration"; }

std::optional<std::string> prepareRoot(const fs::path& root) try {
  for (const char* folder : folders) fs::create_directories(root / folder);
  const Installation built = installation();
  prepareAssetBundle(built.assetBundle, root / assetBundlePath);
  linkTo(built.library, root / libraryFolder / "Brim.dylib");
  writeWhereMissing(root / libraryFolder / "Brim.plist", libraryFilter);
  return std::nullopt;
} catch (const fs::filesystem_error& error) {
  return error.path1().string() + ": " + error.code().message();
}

void linkEndpoints(const fs::path& endpoints) {
  const fs::path present = foundation::root() / assetBundlePath / endpointsFile;
  const auto contentsOf = [](const fs::path& file) { return foundation::readRegularFile(file, largestEndpoints); };
  if (contentsOf(present) == contentsOf(installation().assetBundle / endpointsFile)) fs::remove(present);
  linkTo(endpoints, present);
}

}  // namespace host
