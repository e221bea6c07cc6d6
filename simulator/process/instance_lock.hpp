// A lock that lets only one process of a kind use a root.
#pragma once

#include <filesystem>

#include "simulator/foundation/descriptor.hpp"

namespace process {

// Acquires the lock, which is the file `name` in the folder, and returns its descriptor. The lock is released when the
// descriptor is closed. The file contains the process identifier of the owner. Returns a closed descriptor if another
// process owns the lock. Throws std::filesystem::filesystem_error if the file cannot be created.
foundation::FileDescriptor lockInstance(const std::filesystem::path& folder, const char* name);

}  // namespace process
