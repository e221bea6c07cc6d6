#include "simulator/host/options.hpp"

#include <cstdlib>
#include <regex>
#include <vector>

#include "simulator/host/device_profiles.hpp"
#include "simulator/host/iso_time.hpp"

namespace host {

namespace {

std::string deviceNames() {
  std::string names;
  for (const DeviceProfile& profile : deviceProfiles())
    names += (names.empty() ? "" : ", ") + std::string(profile.name);
  return names;
}

Complaint setDevice(Options& options, const std::string& value) {
  for (const DeviceProfile& profile : deviceProfiles()) {
    if (profile.name != value) continue;
    options.device = value;
    return std::nullopt;
  }
  return "one of " + deviceNames();
}

Complaint setAppearance(Options& options, const std::string& value) {
  if (value != "light" && value != "dark") return "light or dark";
  options.appearance = value == "light" ? StartAppearance::Light : StartAppearance::Dark;
  return std::nullopt;
}

Complaint setLocale(Options& options, const std::string& value) {
  static const std::regex pattern(R"([a-z]{2,3}([_-][A-Z][a-z]{3})?([_-]([A-Z]{2}|\d{3}))?)");
  if (!std::regex_match(value, pattern)) return "a language and a region, such as en_US, de_DE or ar_EG";
  options.locale = value;
  for (char& character : options.locale)
    if (character == '-') character = '_';
  return std::nullopt;
}

Complaint setTime(Options& options, const std::string& value) {
  options.time = parseIsoTime(value);
  if (!options.time) return "a date and time, such as 2020-03-14T09:41 or 2020-03-14T09:41:00Z";
  return std::nullopt;
}

Complaint leaveLibraryOut(Options& options, const std::string&) {
  options.library = LibraryUse::Absent;
  return std::nullopt;
}

Complaint setScript(Options& options, const std::string& value) {
  if (value.empty()) return "a file, or - for standard input";
  options.script = value;
  return std::nullopt;
}

Complaint setDemonstration(Options& options, const std::string& value) {
  if (value.empty()) return "a folder";
  options.demonstration = value;
  return std::nullopt;
}

const std::vector<OptionRow<Options>>& optionTable() {
  static const std::vector<OptionRow<Options>> table = {
      {"--root", "DIR",
       "the folder that stands for the phone's file system, made with its defaults when missing (default: brim/root in "
       "the "
       "user's data folder)",
       &setRoot},
      {"--device", "NAME", deviceNames() + " (default: " + Options().device + ")", &setDevice},
      {"--system", "VERSION", "the system's version, 11.0 or later (default: " + Options().systemVersion + ")",
       &setSystem},
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

Complaint setRoot(Options& options, const std::string& value) {
  if (value.empty()) return "a folder";
  options.root = value;
  return std::nullopt;
}

Complaint setSystem(Options& options, const std::string& value) {
  static const std::regex pattern(R"((\d{1,2})(\.\d{1,2}){0,2})");
  if (!std::regex_match(value, pattern) || std::atoi(value.c_str()) < 11)
    return "a system version of 11.0 or later, such as 11.4, 12.4 or 13.5";
  // A phone never says "13".
  options.systemVersion = value.find('.') == std::string::npos ? value + ".0" : value;
  return std::nullopt;
}

CommandLine<Options> parseOptions(std::span<const char* const> arguments) {
  return parseCommandLine(optionTable(), arguments);
}

std::string helpText() {
  return "springboard: the home screen of a simulated phone, with Brim mapped in.\n\n"
         "usage: springboard [option …]\n\noptions:\n" +
         optionHelp(optionTable());
}

}  // namespace host
