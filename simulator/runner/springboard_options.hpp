// The command-line options of `springboard`, with their default values.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "simulator/foundation/main_queue.hpp"
#include "simulator/process/common_options.hpp"
#include "simulator/runner/window_plugin.hpp"

namespace runner {

enum class StartAppearance { Light, Dark };
enum class Welcome { None, Played };

struct Options {
  // The folder that represents the phone's file system. An empty path selects the user's default root.
  std::filesystem::path root = {};
  std::string device = "iphone-x";
  std::string systemVersion = process::defaultSystemVersion;
  StartAppearance appearance = StartAppearance::Light;
  std::string locale = "en_US";
  // The initial time of the clock, in seconds since 1970. If there is no value, the clock starts at the current time.
  std::optional<double> time = {};
  // A phone with the real clock is live: it runs until it is terminated, and executes the commands of other processes.
  foundation::ClockMode clock = foundation::ClockMode::Stepped;
  // Where a live phone is displayed. If there is no value, it is not displayed.
  std::optional<WindowPlace> window = {};
  // Specifies whether a live phone presents sample notifications after it has started.
  Welcome welcome = Welcome::None;
  process::LibraryUse library = process::LibraryUse::Loaded;
  // The file of the script, or "-" for standard input. Empty if there is no script.
  std::string script = {};
  // The folder for the pictures of the demonstration. Empty if there is no demonstration.
  std::filesystem::path demonstration = {};
};

// Parses the arguments, which do not include the program's name. An option has the form "--name value" or
// "--name=value".
process::CommandLine<Options> parseOptions(std::span<const char* const> arguments);

// Sets an option, as the command line does. Returns a description of the expected value if the value is invalid.
process::ExpectedValue changeOption(Options& options, const std::string& name, const std::string& value);

// Returns the arguments that start a live phone with these options.
std::vector<std::string> argumentsOf(const Options& options);

// Returns the part of the --help text that describes the options: each option with its meaning and default.
std::string helpText();

}  // namespace runner
