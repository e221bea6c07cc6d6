// The number of file descriptors that a program can open. Main thread.
#pragma once

#include <optional>
#include <string>

namespace process {

// Raises the limit of open descriptors as far as the user can. Foundation ends the program with an unclear message if
// it cannot open a descriptor. Returns a description of the error if the program cannot open at least 64 descriptors.
// Call this at the start of a program.
[[nodiscard]] std::optional<std::string> raiseDescriptorLimit();

}  // namespace process
