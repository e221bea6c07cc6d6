// The folder that stands for the phone's file system: made with its defaults where something is missing.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace host {

// What a phone gets from its packages: in lib/brim, share/brim and bin of the prefix that this library is in, which is
// an installation or the build folder.
struct Installation {
  std::filesystem::path library;        // libBrim.so
  std::filesystem::path assetBundle;    // Assets.bundle
  std::filesystem::path applications;   // application icons, <bundle identifier>.png
  std::filesystem::path messages;       // the Messages app's executable
  std::filesystem::path demonstration;  // the files of the demonstration's phone and of its web server
};
Installation installation();

// brim/root in the user's data folder.
std::filesystem::path defaultRoot();
// Beside it: what the demonstration puts into a phone is not the user's.
std::filesystem::path demonstrationRoot();

// Makes what is missing: the library as a link, its filter, the asset bundle as a folder of links with endpoints of its
// own, which may be edited, and the folders of the user's data. The answer is the reason of a failure, nothing on
// success.
[[nodiscard]] std::optional<std::string> prepareRoot(const std::filesystem::path& root);

// Has the root in use take its endpoints from another file, until it is prepared again. Endpoints that were edited are
// the user's own and stay.
void linkEndpoints(const std::filesystem::path& endpoints);

}  // namespace host
