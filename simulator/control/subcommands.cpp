#include "simulator/control/subcommands.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <iostream>
#include <limits>
#include <nlohmann/json.hpp>

#include "simulator/base/json_text.hpp"
#include "simulator/control/phone_connection.hpp"
#include "simulator/control/settings_subcommand.hpp"
#include "simulator/process/common_options.hpp"
#include "simulator/process/standard_streams.hpp"

namespace control {

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;
using Arguments = std::span<const std::string>;

constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

// The options that only some subcommands accept.
struct NumberOption {
  const char* name;
  std::optional<double> ControlOptions::*value;
};

constexpr NumberOption numberOptions[] = {{"--scale", &ControlOptions::scale}, {"--seconds", &ControlOptions::seconds}};

struct TextOption {
  const char* name;
  std::optional<std::string> ControlOptions::*value;
};

constexpr TextOption textOptions[] = {{"--device", &ControlOptions::device},
                                      {"--system", &ControlOptions::system},
                                      {"--locale", &ControlOptions::locale}};

// The phone's current folder can differ from that of this process.
std::string absolutePath(const std::string& path) { return fs::absolute(path).string(); }

// Makes the paths in a command absolute. If the text is not JSON, only joins its lines; the phone then reports the
// error.
std::string preparedLine(const std::string& line) {
  Json command;
  try {
    command = base::parseJson(line);
  } catch (const base::JsonTextError&) {
    std::string sent = line;
    std::ranges::replace(sent, '\n', ' ');
    return sent;
  }
  for (const char* const key : {"path", "icon"}) {
    if (command.is_object() && command.contains(key) && command[key].is_string() &&
        !command[key].get_ref<const std::string&>().empty())
      command[key] = absolutePath(command[key]);
  }
  return command.dump(-1, ' ', false, Json::error_handler_t::replace);
}

bool tellLine(PhoneConnection& phone, const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t\r\n");
  if (first == std::string::npos || line[first] == '#') return true;
  const std::string answer = phone.executeLine(preparedLine(line));
  std::cout << answer << std::endl;
  if (!std::cout) throw ControlError("cannot write to standard output");
  return Json::parse(answer)["ok"].get<bool>();
}

int tell(const ControlOptions& options, Arguments arguments) {
  PhoneConnection phone(options.root);
  bool succeeded = true;
  for (const std::string& argument : arguments) {
    if (argument != "-") {
      succeeded &= tellLine(phone, argument);
      continue;
    }
    for (std::string line; std::getline(std::cin, line);) succeeded &= tellLine(phone, line);
    if (process::failedToReadStandardInput()) throw ControlError("the commands cannot be read from standard input");
  }
  return succeeded ? 0 : 1;
}

// A larger payload file is not parsed. The phone's limit is lower, but does not include white space.
constexpr std::size_t maxPayloadFileBytes = 65536;

std::string readAll(std::istream& input, const std::string& name) {
  std::string text(maxPayloadFileBytes + 1, '\0');
  input.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(input.gcount()));
  if (input.bad() || (&input == &std::cin && process::failedToReadStandardInput()))
    throw ControlError("the payload " + name + " cannot be read");
  if (text.size() > maxPayloadFileBytes)
    throw ControlError("the payload " + name + " has more than " + std::to_string(maxPayloadFileBytes) +
                       " bytes; a payload has at most 4096 bytes without white space");
  return text;
}

std::string readPayload(const std::string& name) {
  if (name == "-") return readAll(std::cin, "from standard input");
  std::error_code error;
  std::ifstream file;
  if (!fs::is_directory(name, error)) file.open(name);
  if (!file.is_open()) throw ControlError("the payload " + name + " cannot be read");
  return readAll(file, name);
}

// The member of a payload file that names the application.
constexpr const char* targetKey = "Simulator Target Bundle";

int push(const ControlOptions& options, Arguments arguments) {
  Json payload;
  try {
    payload = base::parseJson(readPayload(arguments.back()));
  } catch (const base::JsonTextError& error) {
    throw ControlError("the payload " + arguments.back() + " is " + error.what());
  }
  if (!payload.is_object()) throw ControlError(R"(the payload must be an object, such as {"aps":{"alert":"Lunch?"}})");
  Json application = arguments.size() == 2 ? Json(arguments.front()) : payload.value(targetKey, Json());
  payload.erase(targetKey);
  if (!application.is_string())
    throw ControlError(std::string("the application is missing: name it as the first argument, or as the string \"") +
                       targetKey + "\" of the payload");
  PhoneConnection phone(options.root);
  executeOn(phone, {{"do", "push"}, {"application", application}, {"payload", payload}});
  return 0;
}

int switchAppearance(const ControlOptions& options, Arguments arguments) {
  if (arguments[0] != "light" && arguments[0] != "dark")
    throw ControlError("the appearance " + arguments[0] + " does not exist; specify light or dark");
  PhoneConnection phone(options.root);
  executeOn(phone, {{"do", "appearance"}, {"style", arguments[0]}});
  return 0;
}

int writeFile(const char* name, const ControlOptions& options, const std::string& path) {
  Json command = {{"do", name}, {"path", absolutePath(path)}};
  if (options.scale) command["scale"] = *options.scale;
  if (options.seconds) command["seconds"] = *options.seconds;
  PhoneConnection phone(options.root);
  executeOn(phone, command);
  return 0;
}

int takeScreenshot(const ControlOptions& options, Arguments arguments) {
  return writeFile("screenshot", options, arguments[0]);
}

int record(const ControlOptions& options, Arguments arguments) { return writeFile("record", options, arguments[0]); }

int restart(const ControlOptions& options, Arguments) {
  Json command = {{"do", "restart"}};
  for (const TextOption& option : textOptions)
    if (const auto& value = options.*option.value) command[option.name + 2] = *value;
  {
    PhoneConnection phone(options.root);
    executeOn(phone, command);
  }
  // Connecting waits until the phone has restarted.
  PhoneConnection phone(options.root);
  executeOn(phone, {{"do", "wait"}, {"seconds", 0}});
  return 0;
}

// Parses a positive number. Returns a description of the expected value if the text is not one.
process::ExpectedValue parsePositive(std::optional<double>& target, const std::string& text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number) || number <= 0)
    return "a number above 0";
  target = number;
  return std::nullopt;
}

// Accepts any text. The phone checks it.
process::ExpectedValue setText(std::optional<std::string>& target, const std::string& text) {
  target = text;
  return std::nullopt;
}

const std::vector<process::OptionRow<ControlOptions>>& optionTable() {
  static const std::vector<process::OptionRow<ControlOptions>> table = {
      {"--root", "DIR", "the folder of the phone (default: brim/root in the user's data folder)",
       [](ControlOptions& options, const std::string& value) { return process::parseRoot(options.root, value); }},
      {"--scale", "NUMBER", "pixels per point (default: the scale of the device for screenshot, 1 for record)",
       [](ControlOptions& options, const std::string& value) { return parsePositive(options.scale, value); }},
      {"--seconds", "NUMBER", "the duration (default: 5)",
       [](ControlOptions& options, const std::string& value) { return parsePositive(options.seconds, value); }},
      {"--device", "NAME", "the model, such as iphone-se or iphone-x (default: unchanged)",
       [](ControlOptions& options, const std::string& value) { return setText(options.device, value); }},
      {"--system", "VERSION", "the version of the phone's system, such as 12.4 (default: unchanged)",
       [](ControlOptions& options, const std::string& value) { return setText(options.system, value); }},
      {"--locale", "ID", "the language and region, such as de_DE or ar_EG (default: unchanged)",
       [](ControlOptions& options, const std::string& value) { return setText(options.locale, value); }},
  };
  return table;
}

bool takeWord(ControlOptions& options, const std::string& word) {
  options.words.push_back(word);
  return true;
}

const Subcommand* findSubcommand(const std::string& name) {
  const auto found = std::ranges::find(subcommands(), name, &Subcommand::name);
  return found == subcommands().end() ? nullptr : &*found;
}

std::string namesOfSubcommands() {
  std::string names;
  for (const Subcommand& subcommand : subcommands()) names += (names.empty() ? "" : ", ") + subcommand.name;
  return names;
}

std::string usageOf(const Subcommand& subcommand) {
  return "./brim " + subcommand.name + " [option …] " + subcommand.arguments;
}

void checkArguments(const ControlOptions& options, const Subcommand& subcommand) {
  const std::size_t count = options.words.size() - 1;
  if (count < subcommand.minArguments || count > subcommand.maxArguments)
    throw UsageError("usage: " + usageOf(subcommand));
  const auto check = [&subcommand](const char* option, bool isPresent) {
    if (isPresent && std::ranges::find(subcommand.options, option) == subcommand.options.end())
      throw UsageError(subcommand.name + " has no option " + option + "; usage: " + usageOf(subcommand));
  };
  for (const NumberOption& option : numberOptions) check(option.name, (options.*option.value).has_value());
  for (const TextOption& option : textOptions) check(option.name, (options.*option.value).has_value());
}

// Returns the lines of the options that the subcommand accepts, or of all options.
std::string optionLines(const Subcommand* subcommand) {
  std::vector<process::OptionRow<ControlOptions>> rows;
  for (const auto& row : optionTable()) {
    if (subcommand == nullptr || std::string(row.name) == "--root" ||
        std::ranges::find(subcommand->options, row.name) != subcommand->options.end())
      rows.push_back(row);
  }
  return process::optionHelp(rows);
}

}  // namespace

const std::vector<Subcommand>& subcommands() {
  static const std::vector<Subcommand> table = {
      {"tell",
       "COMMAND…",
       "execute script commands, and print the answers; - reads the commands from standard input",
       1,
       anyNumber,
       {},
       &tell},
      {"push",
       "[BUNDLE] FILE",
       "deliver the JSON payload in the file to the application BUNDLE; - reads it from standard input",
       1,
       2,
       {},
       &push},
      {"appearance", "light|dark", "change the system appearance", 1, 1, {}, &switchAppearance},
      {"screenshot", "FILE", "write a picture of the screen to a PNG file", 1, 1, {"--scale"}, &takeScreenshot},
      {"record", "FILE", "record the screen to an animated WebP file", 1, 1, {"--scale", "--seconds"}, &record},
      {"restart",
       "",
       "restart the home screen, with another device, system version or language if they are specified; preserves "
       "the preferences and the notifications in the list",
       0,
       0,
       {"--device", "--system", "--locale"},
       &restart},
      {"settings",
       "list | get KEY | set KEY VALUE | reset KEY",
       "print or change the settings of Brim",
       1,
       3,
       {},
       &executeOnSettings},
  };
  return table;
}

process::CommandLine<ControlOptions> parseControlOptions(std::span<const char* const> arguments) {
  return process::parseCommandLine(optionTable(), arguments, &takeWord);
}

int execute(const ControlOptions& options) {
  if (options.words.empty()) throw UsageError("the subcommand is missing; the subcommands are " + namesOfSubcommands());
  const Subcommand* subcommand = findSubcommand(options.words.front());
  if (subcommand == nullptr)
    throw UsageError("there is no subcommand " + options.words.front() + "; the subcommands are " +
                     namesOfSubcommands());
  checkArguments(options, *subcommand);
  return subcommand->execute(options, std::span(options.words).subspan(1));
}

std::string helpText(const std::string& name) {
  if (const Subcommand* subcommand = findSubcommand(name))
    return subcommand->name + ": " + subcommand->description + ".\n\nusage: " + usageOf(*subcommand) +
           "\n\noptions:\n" + optionLines(subcommand);
  std::string text =
      "phone_control: controls a live phone, which \"./brim springboard --live\" starts.\n\n"
      "usage: ./brim SUBCOMMAND [option …] [argument …]\n\nsubcommands:\n";
  for (const Subcommand& subcommand : subcommands())
    text += "  " + subcommand.name + " " + subcommand.arguments + "\n      " + subcommand.description + "\n";
  return text + "\noptions:\n" + optionLines(nullptr);
}

}  // namespace control
