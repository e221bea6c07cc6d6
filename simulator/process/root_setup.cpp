#include "simulator/process/root_setup.hpp"

#include <unistd.h>

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
constexpr std::size_t maxEndpoints = 1 << 20;
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

std::optional<std::string> prepareRoot(const fs::path& root) try {
  for (const char* folder : folders) fs::create_directories(root / folder);
  const base::Installation built = base::installation();
  prepareAssetBundle(built.assetBundle, root / base::assetBundlePath);
  linkTo(built.library, root / libraryFolder / "Brim.dylib");
  writeWhereMissing(root / libraryFolder / "Brim.plist", libraryFilter);
  return std::nullopt;
} catch (const fs::filesystem_error& error) {
  return error.path1().string() + ": " + error.code().message();
}

void linkEndpoints(const fs::path& endpoints) {
  const fs::path present = foundation::root() / base::assetBundlePath / endpointsFile;
  const auto contentsOf = [](const fs::path& file) { return base::readRegularFile(file, maxEndpoints); };
  if (contentsOf(present) == contentsOf(base::installation().assetBundle / endpointsFile)) fs::remove(present);
  linkTo(endpoints, present);
}

}  // namespace process
