// Command-line options that all programs of the simulated phone share.
#pragma once

#include <filesystem>
#include <string>

#include "simulator/process/command_line.hpp"

namespace process {

// Whether the library is loaded into the process.
enum class LibraryUse { Loaded, Absent };

inline constexpr const char* defaultSystemVersion = "13.5";

// Parse the values of --root and --system into their first argument, which stays unchanged if the value is invalid.
ExpectedValue parseRoot(std::filesystem::path& root, const std::string& value);
ExpectedValue parseSystem(std::string& systemVersion, const std::string& value);

}  // namespace process
