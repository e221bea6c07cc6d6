// Command-line parsing. A table describes the options of a program. The parser and --help use the same table.
#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace process {

struct HelpRequest {};
struct VersionRequest {};
struct OptionError {
  // A message that states the error and the expected argument.
  std::string message;
};

// The result of applying an option's value: nothing if the value is valid, or otherwise a description of the expected
// value, such as "a folder".
using ExpectedValue = std::optional<std::string>;

template <class Options>
using CommandLine = std::variant<Options, HelpRequest, VersionRequest, OptionError>;

template <class Options>
struct OptionRow {
  const char* name;
  const char* valueName;  // null if the option has no value
  std::string description;
  ExpectedValue (*apply)(Options& options, const std::string& value);
};

namespace detail {

template <class Options>
std::string usageWithValue(const OptionRow<Options>& row) {
  return row.valueName == nullptr ? row.name : std::string(row.name) + " " + row.valueName;
}

inline bool hasFormOfOption(const std::string& word) {
  return word.starts_with('-') && word.size() > 1 && (word[1] < '0' || word[1] > '9');
}

// The parts of a word "--name=value". If the word has another form, `name` is the whole word and there is no value.
struct Argument {
  std::string name;
  std::optional<std::string> value;
};

inline Argument splitArgument(const std::string& word) {
  const std::size_t equals = word.find('=');
  if (!word.starts_with("--") || equals == std::string::npos) return {word, std::nullopt};
  return {word.substr(0, equals), word.substr(equals + 1)};
}

}  // namespace detail

// Parses the arguments, which do not include the program's name. An option is written "--name value" or "--name=value".
// The word "-", which usually represents standard input or output, and negative numbers are not options.
// If `takeWord` is not null, it is called with every other word and with every word after "--", and returns whether it
// accepts the word. If `takeWord` is null, the program accepts options only.
template <class Options>
CommandLine<Options> parseCommandLine(const std::vector<OptionRow<Options>>& table,
                                      std::span<const char* const> arguments,
                                      bool (*takeWord)(Options& options, const std::string& word) = nullptr) {
  Options options;
  bool optionsHaveEnded = false;
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    const std::string word = arguments[index];
    const bool isOption = !optionsHaveEnded && detail::hasFormOfOption(word);
    if (isOption && (word == "--help" || word == "-h")) return HelpRequest{};
    if (isOption && word == "--version") return VersionRequest{};
    if (takeWord != nullptr && isOption && word == "--") {
      optionsHaveEnded = true;
      continue;
    }
    if (takeWord != nullptr && !isOption && takeWord(options, word)) continue;

    auto [name, value] = detail::splitArgument(word);
    const auto row = std::ranges::find(table, name, &OptionRow<Options>::name);
    if (row == table.end()) return OptionError{"unknown option " + name + "; run with --help to list the options"};
    if (row->valueName == nullptr) {
      if (value) return OptionError{name + " takes no value"};
      value = "";
    } else if (!value) {
      if (index + 1 == arguments.size())
        return OptionError{name + " requires a value: " + detail::usageWithValue(*row)};
      value = arguments[++index];
    }
    if (const ExpectedValue expected = row->apply(options, *value))
      return OptionError{name + (value->empty() ? "" : " " + *value) + ": expected " + *expected};
  }
  return options;
}

// Returns the list of options that --help prints, with one line for each option.
template <class Options>
std::string optionHelp(const std::vector<OptionRow<Options>>& table) {
  static constexpr std::size_t descriptionColumn = 24;
  std::string text;
  const auto add = [&text](std::string usage, const std::string& description) {
    usage.resize(std::max(descriptionColumn, usage.size() + 2), ' ');
    text += usage + description + "\n";
  };
  for (const OptionRow<Options>& row : table) add("  " + detail::usageWithValue(row), row.description);
  add("  --help", "print this help");
  add("  --version", "print the name and version of the program");
  return text;
}

}  // namespace process
