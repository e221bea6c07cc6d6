// The demonstration. It presents sample notifications in the light and the dark appearance and takes pictures of them.
// Main thread.
#pragma once

#include <filesystem>

#include "simulator/runner/session.hpp"

namespace runner {

// Presents the samples in turn and writes a picture of each sample into the folder. Creates the folder if it is
// missing. Prints the paths of the pictures to standard output and errors to standard error. Returns the exit status of
// the process.
int demonstrate(Session& session, const std::filesystem::path& folder);

}  // namespace runner
