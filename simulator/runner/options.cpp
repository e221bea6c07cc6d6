#include "simulator/runner/options.hpp"

#include <regex>
#include <vector>

#include "simulator/base/device_profiles.hpp"
#include "simulator/base/iso_time.hpp"

namespace runner {

namespace {

std::string deviceNames() {
  std::string names;
  for (const base::DeviceProfile& profile : base::deviceProfiles())
    names += (names.empty() ? "" : ", ") + std::string(profile.name);
  return names;
}

process::ExpectedValue setDevice(Options& options, const std::string& value) {
  for (const base::DeviceProfile& profile : base::deviceProfiles()) {
    if (profile.name != value) continue;
    options.device = value;
    return std::nullopt;
  }
  return "one of " + deviceNames();
}

process::ExpectedValue setAppearance(Options& options, const std::string& value) {
  if (value != "light" && value != "dark") return "light or dark";
  options.appearance = value == "light" ? StartAppearance::Light : StartAppearance::Dark;
  return std::nullopt;
}

process::ExpectedValue setLocale(Options& options, const std::string& value) {
  static const std::regex pattern(R"([a-z]{2,3}([_-][A-Z][a-z]{3})?([_-]([A-Z]{2}|\d{3}))?)");
  if (!std::regex_match(value, pattern)) return "a language and a region, such as en_US, de_DE or ar_EG";
  options.locale = value;
  for (char& character : options.locale)
    if (character == '-') character = '_';
  return std::nullopt;
}

process::ExpectedValue setTime(Options& options, const std::string& value) {
  options.time = base::parseIsoTime(value);
  if (!options.time) return "a date and time, such as 2020-03-14T09:41 or 2020-03-14T09:41:00Z";
  return std::nullopt;
}

process::ExpectedValue leaveLibraryOut(Options& options, const std::string&) {
  options.library = process::LibraryUse::Absent;
  return std::nullopt;
}

process::ExpectedValue setScript(Options& options, const std::string& value) {
  if (value.empty()) return "a file, or - for standard input";
  options.script = value;
  return std::nullopt;
}

process::ExpectedValue setDemonstration(Options& options, const std::string& value) {
  if (value.empty()) return "a folder";
  options.demonstration = value;
  return std::nullopt;
}

const std::vector<process::OptionRow<Options>>& optionTable() {
  static const std::vector<process::OptionRow<Options>> table = {
      {"--root", "DIR",
       "the folder that stands for the phone's file system, made with its defaults when missing (default: brim/root in "
       "the "
       "user's data folder)",
       [](Options& options, const std::string& value) { return process::parseRoot(options.root, value); }},
      {"--device", "NAME", deviceNames() + " (default: " + Options().device + ")", &setDevice},
      {"--system", "VERSION", "the system's version, 11.0 or later (default: " + Options().systemVersion + ")",
       [](Options& options, const std::string& value) { return process::parseSystem(options.systemVersion, value); }},
      {"--appearance", "STYLE", "light or dark, at start (default: light)", &setAppearance},
      {"--locale", "ID", "language and region, such as de_DE or ar_EG (default: " + Options().locale + ")", &setLocale},
      {"--time", "ISO8601", "what the clock shows at start, such as 2020-03-14T09:41 (default: the time it is)",
       &setTime},
      {"--without-brim", nullptr, "leave the library out: the platform's own banners (default: it is mapped in)",
       &leaveLibraryOut},
      {"--script", "FILE", "obey one JSON object a line of this file, - for standard input (default: none)",
       &setScript},
      {"--demonstration", "DIR",
       "write pictures of sample notifications into this folder, by default in a root of their own (default: none)",
       &setDemonstration},
  };
  return table;
}

}  // namespace

process::CommandLine<Options> parseOptions(std::span<const char* const> arguments) {
  return process::parseCommandLine(optionTable(), arguments);
}

std::string helpText() {
  return "springboard: the home screen of a simulated phone, with Brim mapped in.\n\n"
         "usage: springboard [option …]\n\noptions:\n" +
         process::optionHelp(optionTable());
}

}  // namespace runner
