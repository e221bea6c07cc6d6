// Options that all programs of the simulated phone share.
#pragma once

#include <filesystem>
#include <string>

#include "simulator/process/command_line.hpp"

namespace process {

// Whether the library is mapped into the process.
enum class LibraryUse { Mapped, Absent };

inline constexpr const char* defaultSystemVersion = "13.5";

// Parse the values of --root and --system. Each returns a description of the expected value if the given one is
// invalid, and then leaves its first argument unchanged.
OptionFailure parseRoot(std::filesystem::path& root, const std::string& value);
OptionFailure parseSystem(std::string& systemVersion, const std::string& value);

}  // namespace process
