#include "simulator/runner/springboard_options.hpp"

#include <algorithm>

#include "simulator/base/device_profiles.hpp"
#include "simulator/base/iso_time.hpp"
#include "simulator/foundation/locale.hpp"

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
  if (!foundation::isLocaleIdentifier(value)) return "a language and a region, such as en_US, de_DE or ar_EG";
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

process::ExpectedValue omitLibrary(Options& options, const std::string&) {
  options.library = process::LibraryUse::Absent;
  return std::nullopt;
}

process::ExpectedValue setScript(Options& options, const std::string& value) {
  if (value.empty()) return "a file, or - for standard input";
  options.script = value;
  return std::nullopt;
}

process::ExpectedValue selectRealClock(Options& options, const std::string&) {
  options.clock = foundation::ClockMode::Real;
  return std::nullopt;
}

process::ExpectedValue displayIn(WindowPlace place, Options& options) {
  if (options.window && options.window != place)
    return "only one of --window and --browser, because the phone is displayed in one place";
  options.window = place;
  return std::nullopt;
}

process::ExpectedValue openWindow(Options& options, const std::string&) {
  return displayIn(WindowPlace::Desktop, options);
}

process::ExpectedValue servePage(Options& options, const std::string&) {
  return displayIn(WindowPlace::WebPage, options);
}

process::ExpectedValue playWelcome(Options& options, const std::string&) {
  options.welcome = Welcome::Played;
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
       "the folder that represents the phone's file system; created with default files if missing (default: brim/root "
       "in the user's data folder)",
       [](Options& options, const std::string& value) { return process::parseRoot(options.root, value); }},
      {"--device", "NAME", "the model: " + deviceNames() + " (default: " + Options().device + ")", &setDevice},
      {"--system", "VERSION",
       "the version of the phone's system, 11.0 or later (default: " + Options().systemVersion + ")",
       [](Options& options, const std::string& value) { return process::parseSystem(options.systemVersion, value); }},
      {"--appearance", "STYLE", "the initial appearance, light or dark (default: light)", &setAppearance},
      {"--locale", "ID", "the language and region, such as de_DE or ar_EG (default: " + Options().locale + ")",
       &setLocale},
      {"--time", "ISO8601", "the initial time of the clock, such as 2020-03-14T09:41 (default: the current time)",
       &setTime},
      {"--without-brim", nullptr,
       "do not load the library; the home screen shows the platform's own banners (default: load it)", &omitLibrary},
      {"--script", "FILE", "execute the commands in this file, or from standard input if FILE is - (default: none)",
       &setScript},
      {"--live", nullptr,
       "run on the real clock until terminated, and execute the commands that other processes send; see \"./brim "
       "tell\" (default: run a script)",
       &selectRealClock},
      {"--window", nullptr,
       "with --live: open a window in which the phone is displayed and used; closing it ends the phone (default: no "
       "window)",
       &openWindow},
      {"--browser", nullptr,
       "with --live: serve a web page in which the phone is displayed and used, on this computer only, and print its "
       "address (default: no page)",
       &servePage},
      {"--welcome", nullptr,
       "with --live: present three sample notifications after the start; uses a separate root unless --root is "
       "specified (default: present nothing)",
       &playWelcome},
      {"--demonstration", "DIR",
       "write pictures of sample notifications into this folder; uses a separate root unless --root is specified "
       "(default: none)",
       &setDemonstration},
  };
  return table;
}

}  // namespace

process::CommandLine<Options> parseOptions(std::span<const char* const> arguments) {
  process::CommandLine<Options> parsed = process::parseCommandLine(optionTable(), arguments);
  const auto* options = std::get_if<Options>(&parsed);
  if (options == nullptr) return parsed;
  if (options->clock == foundation::ClockMode::Stepped) {
    if (options->window == WindowPlace::Desktop) return process::OptionError{"--window requires --live"};
    if (options->window == WindowPlace::WebPage) return process::OptionError{"--browser requires --live"};
    if (options->welcome == Welcome::Played) return process::OptionError{"--welcome requires --live"};
    return parsed;
  }
  if (!options->script.empty() || !options->demonstration.empty()) {
    return process::OptionError{
        "--live cannot be combined with --script or --demonstration; send the commands with "
        "\"./brim tell\""};
  }
  if (options->time) return process::OptionError{"--live cannot be combined with --time, because its clock is real"};
  return parsed;
}

process::ExpectedValue changeOption(Options& options, const std::string& name, const std::string& value) {
  const auto row = std::ranges::find(optionTable(), name, &process::OptionRow<Options>::name);
  return row->apply(options, value);
}

std::vector<std::string> argumentsOf(const Options& options) {
  std::vector<std::string> arguments = {"--live",
                                        "--device",
                                        options.device,
                                        "--system",
                                        options.systemVersion,
                                        "--locale",
                                        options.locale,
                                        "--appearance",
                                        options.appearance == StartAppearance::Dark ? "dark" : "light"};
  if (!options.root.empty()) arguments.insert(arguments.end(), {"--root", options.root});
  if (options.library == process::LibraryUse::Absent) arguments.emplace_back("--without-brim");
  if (options.window) arguments.emplace_back(options.window == WindowPlace::Desktop ? "--window" : "--browser");
  if (options.welcome == Welcome::Played) arguments.emplace_back("--welcome");
  return arguments;
}

std::string helpText() {
  return "springboard: the home screen of a simulated phone on which Brim is installed.\n\n"
         "usage: springboard [option …]\n\noptions:\n" +
         process::optionHelp(optionTable());
}

}  // namespace runner
