// Command-line options that all programs of the simulated phone share.
#pragma once

#include <filesystem>
#include <string>

#include "simulator/process/command_line.hpp"

namespace process {

// Specifies whether to load the library into the process.
enum class LibraryUse { Loaded, Absent };

inline constexpr const char* defaultSystemVersion = "13.5";

// Parse the values of --root and --system into the first argument. If the value is invalid, the first argument does not
// change, and the function returns a description of the expected value.
ExpectedValue parseRoot(std::filesystem::path& root, const std::string& value);
ExpectedValue parseSystem(std::string& systemVersion, const std::string& value);

}  // namespace process
