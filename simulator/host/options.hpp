// The home screen's command line: what can be chosen, and what it is when nothing is said.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "simulator/host/command_line.hpp"

namespace host {

enum class StartAppearance { Light, Dark };
// Whether the library is mapped into the process.
enum class LibraryUse { Mapped, Absent };

struct Options {
  // Stands for the phone's file system. Empty: the user's own, in the user's data folder.
  std::filesystem::path root = {};
  std::string device = "iphone-x";
  std::string systemVersion = "13.5";
  StartAppearance appearance = StartAppearance::Light;
  std::string locale = "en_US";
  // What the clock shows at start, in seconds since 1970; nothing: the real time.
  std::optional<double> time = {};
  LibraryUse library = LibraryUse::Mapped;
  // "-" is standard input; empty: no script.
  std::string script = {};
  // Where pictures of sample notifications go; empty: none are made.
  std::filesystem::path demonstration = {};
};

// The arguments without the program's name. An option may be written "--name value" or "--name=value".
CommandLine<Options> parseOptions(std::span<const char* const> arguments);

// What the values of --root and --system mean to every program of the phone.
Complaint setRoot(Options& options, const std::string& value);
Complaint setSystem(Options& options, const std::string& value);

// The text that --help prints: every option with its meaning and default.
std::string helpText();

}  // namespace host
