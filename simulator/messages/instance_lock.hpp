// At most one Messages app runs on a root.
#pragma once

#include <filesystem>

#include "simulator/foundation/descriptor.hpp"

namespace messages {

// Holds the root's lock, a file that tells the number of the process that holds it. None open where another process
// does; throws std::filesystem::filesystem_error where the file cannot be made.
foundation::Descriptor lockInstance(const std::filesystem::path& folder);

}  // namespace messages
