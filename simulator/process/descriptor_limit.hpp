// The limit on open file descriptors. Main thread.
#pragma once

#include <optional>
#include <string>

namespace process {

// Raises the limit on open file descriptors to the maximum that the user may set, because Foundation ends the program
// with an unclear message if it cannot open a descriptor. Returns a description of the error if the program cannot open
// at least 64 descriptors. Call this at the start of a program.
[[nodiscard]] std::optional<std::string> raiseDescriptorLimit();

}  // namespace process
