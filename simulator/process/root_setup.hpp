// The folder that stands for the phone's file system: made with its defaults where something is missing.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace process {

// Makes what is missing: the library as a link, its filter, the asset bundle as a folder of links with endpoints of its
// own, which may be edited, and the folders of the user's data. The answer is the reason of a failure, nothing on
// success.
[[nodiscard]] std::optional<std::string> prepareRoot(const std::filesystem::path& root);

// Has the root in use take its endpoints from another file, until it is prepared again. Endpoints that were edited are
// the user's own and stay.
void linkEndpoints(const std::filesystem::path& endpoints);

}  // namespace process
