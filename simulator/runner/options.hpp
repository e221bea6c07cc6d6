// The home screen's command line: what can be chosen, and what it is when nothing is said.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "simulator/process/common_options.hpp"

namespace runner {

enum class StartAppearance { Light, Dark };

struct Options {
  // The folder that represents the phone's file system. An empty path selects the user's default root.
  std::filesystem::path root = {};
  std::string device = "iphone-x";
  std::string systemVersion = process::defaultSystemVersion;
  StartAppearance appearance = StartAppearance::Light;
  std::string locale = "en_US";
  // What the clock shows at start, in seconds since 1970; nothing: the real time.
  std::optional<double> time = {};
  process::LibraryUse library = process::LibraryUse::Mapped;
  // "-" is standard input; empty: no script.
  std::string script = {};
  // Where pictures of sample notifications go; empty: none are made.
  std::filesystem::path demonstration = {};
};

// The arguments without the program's name. An option may be written "--name value" or "--name=value".
process::CommandLine<Options> parseOptions(std::span<const char* const> arguments);

// The text that --help prints: every option with its meaning and default.
std::string helpText();

}  // namespace runner
