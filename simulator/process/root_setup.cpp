#include "simulator/process/root_setup.hpp"

#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <functional>
#include <system_error>

#include "simulator/base/file_contents.hpp"
#include "simulator/base/installation.hpp"
#include "simulator/foundation/root.hpp"

namespace process {

namespace {

namespace fs = std::filesystem;

constexpr const char* endpointsFile = "endpoints.plist";
constexpr std::size_t maxEndpointsBytes = 1 << 20;
constexpr const char* loaderFolder = "Library/MobileSubstrate/DynamicLibraries";
constexpr const char* folders[] = {
    "Library/Application Support/Brim",      loaderFolder,
    "var/mobile/Containers/Shared/AppGroup", "var/mobile/Containers/Data/Application",
    "var/mobile/Library/Preferences",
};

constexpr const char* loaderFilter = R"({
  Filter = {
    Bundles = ("com.apple.springboard", "com.apple.MobileSMS");
  };
}
)";

// Creates a file under a temporary name and then renames it, because another process can prepare the same root at the
// same time.
void createAtomically(const fs::path& path, const std::function<void(const fs::path& temporary)>& create) {
  const fs::path temporary = path.native() + "." + std::to_string(getpid());
  create(temporary);
  fs::rename(temporary, path);
}

// Creates the link, or changes its target to the current build. A file or folder in the place of the link belongs to
// the user and is not replaced.
void updateLink(const fs::path& target, const fs::path& link) {
  const bool isLink = fs::is_symlink(link);
  if (!fs::exists(target) || (fs::exists(link) && !isLink) || (isLink && fs::read_symlink(link) == target)) return;
  createAtomically(link, [&target](const fs::path& temporary) { fs::create_symlink(target, temporary); });
}

void writeIfMissing(const fs::path& path, const std::string& text) {
  if (fs::exists(path)) return;
  createAtomically(path, [&](const fs::path& temporary) {
    std::ofstream file(temporary);
    file << text;
    file.close();
    if (!file) throw fs::filesystem_error("cannot write", path, std::error_code(errno, std::generic_category()));
  });
}

void prepareAssetBundle(const fs::path& builtBundle, const fs::path& bundle) {
  if (fs::is_symlink(bundle)) fs::remove(bundle);
  fs::create_directories(bundle);
  for (const auto& entry : fs::directory_iterator(builtBundle))
    if (entry.path().filename() != endpointsFile) updateLink(entry.path(), bundle / entry.path().filename());
  // If endpoints.plist is a link, an earlier demonstration has created it.
  if (fs::is_symlink(bundle / endpointsFile)) fs::remove(bundle / endpointsFile);
  if (fs::exists(bundle / endpointsFile)) return;
  createAtomically(bundle / endpointsFile,
                   [&](const fs::path& temporary) { fs::copy_file(builtBundle / endpointsFile, temporary); });
}

}  // namespace

std::optional<std::string> prepareRoot(const fs::path& root) try {
  for (const char* folder : folders) fs::create_directories(root / folder);
  const base::Installation installation = base::installation();
  prepareAssetBundle(installation.assetBundle, root / base::assetBundlePath);
  updateLink(installation.library, root / loaderFolder / "Brim.dylib");
  writeIfMissing(root / loaderFolder / "Brim.plist", loaderFilter);
  return std::nullopt;
} catch (const fs::filesystem_error& error) {
  return error.path1().string() + ": " + error.code().message();
}

void linkEndpoints(const fs::path& endpoints) {
  const fs::path current = foundation::root() / base::assetBundlePath / endpointsFile;
  const auto contentsOf = [](const fs::path& file) { return base::readRegularFile(file, maxEndpointsBytes); };
  if (contentsOf(current) == contentsOf(base::installation().assetBundle / endpointsFile)) fs::remove(current);
  updateLink(endpoints, current);
}

}  // namespace process
