// Pictures of notifications as they come in everyday life, in both appearances.
#pragma once

#include <filesystem>

#include "simulator/runner/session.hpp"

namespace runner {

// Presents them one after the other and writes a picture of each into the folder, which is made where it is missing.
// Prints the pictures' paths on standard output, what goes wrong on standard error; answers the process's exit status.
int demonstrate(Session& session, const std::filesystem::path& folder);

}  // namespace runner
