// Creates the files of a root, the folder that represents the phone's file system. Main thread.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace process {

// Creates the missing files of the root: a link to the library, the filter that specifies into which processes the
// injection loader loads the library, the asset bundle, and the folders for user data. The asset bundle contains links
// to the built assets and a copy of endpoints.plist, which the user can edit. Returns a description of the error, or
// nothing on success.
[[nodiscard]] std::optional<std::string> prepareRoot(const std::filesystem::path& root);

// Replaces endpoints.plist of the current root by a link to another file. The link exists until the root is prepared
// again. Does nothing if the user has edited endpoints.plist.
void linkEndpoints(const std::filesystem::path& endpoints);

}  // namespace process
