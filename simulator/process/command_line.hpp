// Command lines as tables: the parser and --help read the same rows.
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
// What is wrong and what would be right, for people.
struct OptionError {
  std::string message;
};

// Nothing on success, else what would have been right.
using OptionFailure = std::optional<std::string>;

template <class Options>
using CommandLine = std::variant<Options, HelpRequest, VersionRequest, OptionError>;

template <class Options>
struct OptionRow {
  const char* name;
  const char* valueName;  // null for an option without a value
  std::string meaning;
  OptionFailure (*apply)(Options& options, const std::string& value);
};

namespace detail {

template <class Options>
std::string usageWithValue(const OptionRow<Options>& row) {
  return row.valueName == nullptr ? row.name : std::string(row.name) + " " + row.valueName;
}

// "--name=value" as two words; the value is missing in any other form.
struct Argument {
  std::string name;
  std::optional<std::string> value;
};

inline Argument split(const std::string& word) {
  const std::size_t equals = word.find('=');
  if (!word.starts_with("--") || equals == std::string::npos) return {word, std::nullopt};
  return {word.substr(0, equals), word.substr(equals + 1)};
}

}  // namespace detail

// The arguments without the program's name. An option may be written "--name value" or "--name=value". A word that is
// no option goes to `takeWord`, which answers whether there is a use for it; all words behind "--" do.
template <class Options>
CommandLine<Options> parseCommandLine(const std::vector<OptionRow<Options>>& table,
                                      std::span<const char* const> arguments,
                                      bool (*takeWord)(Options& options, const std::string& word) = nullptr) {
  Options options;
  bool onlyWords = false;
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    const std::string word = arguments[index];
    const bool isOption = !onlyWords && word.starts_with('-');
    if (isOption && (word == "--help" || word == "-h")) return HelpRequest{};
    if (isOption && word == "--version") return VersionRequest{};
    if (takeWord != nullptr && isOption && word == "--") {
      onlyWords = true;
      continue;
    }
    if (takeWord != nullptr && !isOption && takeWord(options, word)) continue;

    auto [name, value] = detail::split(word);
    const auto row = std::ranges::find(table, name, &OptionRow<Options>::name);
    if (row == table.end()) return OptionError{"unknown option " + name + "; --help lists the options there are"};
    if (row->valueName == nullptr) {
      if (value) return OptionError{name + " takes no value"};
      value = "";
    } else if (!value) {
      if (index + 1 == arguments.size()) return OptionError{name + " wants a value: " + detail::usageWithValue(*row)};
      value = arguments[++index];
    }
    if (const OptionFailure wanted = row->apply(options, *value))
      return OptionError{name + " " + *value + ": this option takes " + *wanted};
  }
  return options;
}

// One line an option.
template <class Options>
std::string optionHelp(const std::vector<OptionRow<Options>>& table) {
  static constexpr std::size_t column = 24;
  std::string text;
  const auto add = [&text](std::string left, const std::string& meaning) {
    left.resize(std::max(column, left.size() + 2), ' ');
    text += left + meaning + "\n";
  };
  for (const OptionRow<Options>& row : table) add("  " + detail::usageWithValue(row), row.meaning);
  add("  --help", "this text");
  add("  --version", "the program's name and version");
  return text;
}

}  // namespace process
