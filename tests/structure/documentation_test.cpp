// Compares the reference documents with the tables in the code.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "simulator/messages/messages_options.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/springboard_options.hpp"
#include "tests/support/markdown_table.hpp"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Names = std::set<std::string>;
using Row = test::MarkdownRow;
using test::markdownNames;
using test::markdownTable;

std::string contents(const fs::path& file) {
  std::ifstream stream(fs::path(SOURCE_FOLDER) / file);
  EXPECT_TRUE(stream) << file << " cannot be read";
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

// The key, the type and the default value.
using DocumentedSetting = std::tuple<std::string, std::string, std::string>;

std::string typeName(bool) { return "bool"; }
std::string typeName(long) { return "integer"; }
std::string valueText(bool value) { return value ? "true" : "false"; }
std::string valueText(long value) { return std::to_string(value); }

std::set<DocumentedSetting> settingsInCode() {
  using NSInteger = long;
  return {
#define BRIM_SETTING(type, variable, key, value) \
  {key, typeName(static_cast<type>(value)), valueText(static_cast<type>(value))},
#include "library/settings/settings_list.hpp"
  };
}

TEST(SettingsDocument, ListsEachSettingWithItsTypeAndDefault) {
  std::set<DocumentedSetting> documented;
  const std::string text = contents("docs/settings.md");
  for (const Row& row : markdownTable(text, "| Key | Type | Default |"))
    EXPECT_TRUE(documented.insert({*markdownNames(row[0]).begin(), row[1], row[2]}).second);
  EXPECT_THAT(documented, ElementsAreArray(settingsInCode()));
}

std::vector<runner::Command> allCommands() {
  std::vector<runner::Command> all;
  for (const auto commands : {runner::presentingCommands(), runner::touchCommands(), runner::phoneCommands(),
                              runner::timeCommands(), runner::inspectionCommands(), runner::recordingCommands()})
    all.insert(all.end(), commands.begin(), commands.end());
  return all;
}

std::map<std::string, std::string> documentedFields() {
  std::map<std::string, std::string> fields;
  for (const Row& row : markdownTable(contents("docs/script.md"), "| do | fields |"))
    for (const std::string& name : markdownNames(row[0])) fields[name] = row[1];
  return fields;
}

TEST(ScriptDocument, ListsEachCommand) {
  Names documented;
  for (const auto& [name, fields] : documentedFields()) documented.insert(name);
  Names expected;
  for (const runner::Command& command : allCommands()) expected.insert(command.name);
  EXPECT_THAT(documented, ElementsAreArray(expected));
}

TEST(ScriptDocument, ListsEachFieldOfEachCommand) {
  const auto documented = documentedFields();
  for (const runner::Command& command : allCommands())
    for (const runner::Field& field : command.fields)
      EXPECT_TRUE(markdownNames(documented.at(command.name)).contains(field.name)) << command.name << " " << field.name;
}

// Each name in the table must be the name of a field, or a value that a field accepts.
TEST(ScriptDocument, ListsNoFieldThatDoesNotExist) {
  const auto documented = documentedFields();
  for (const runner::Command& command : allCommands()) {
    Names known;
    for (const runner::Field& field : command.fields) {
      known.insert(field.name);
      std::istringstream words(std::regex_replace(field.type.description, std::regex("[^a-z]+"), " "));
      for (std::string word; words >> word;) known.insert(word);
    }
    for (const std::string& name : markdownNames(documented.at(command.name)))
      EXPECT_TRUE(known.contains(name)) << command.name << " " << name;
  }
}

Names optionsIn(const std::string& text) {
  static const std::regex option("--[a-z][a-z-]*");
  Names names;
  for (std::sregex_iterator match(text.begin(), text.end(), option), end; match != end; ++match)
    names.insert(match->str());
  return names;
}

Names optionsOfHelp(const std::string& help) {
  static const std::regex line(R"(\n  (--[a-z-]+))");
  Names names;
  for (std::sregex_iterator match(help.begin(), help.end(), line), end; match != end; ++match)
    names.insert((*match)[1]);
  return names;
}

TEST(ScriptDocument, ListsTheOptionsOfBothPrograms) {
  Names documented;
  for (const Row& row : markdownTable(contents("docs/script.md"), "| option | meaning |"))
    documented.merge(optionsIn(row[0]));
  Names expected = optionsOfHelp(runner::helpText());
  expected.merge(optionsOfHelp(messages::messagesHelp()));
  EXPECT_THAT(documented, ElementsAreArray(expected));
}

Names recordedEvents() {
  static const std::regex call(R"re(\brecord\w*\(\s*"(\w+)"|\{"event", "(\w+)"\})re");
  Names names;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCE_FOLDER) / "simulator")) {
    if (entry.path().extension() != ".cpp") continue;
    const std::string text = contents(entry.path());
    for (std::sregex_iterator match(text.begin(), text.end(), call), end; match != end; ++match)
      names.insert((*match)[1].matched ? (*match)[1] : (*match)[2]);
  }
  return names;
}

TEST(ScriptDocument, ListsEachEventOfTheLog) {
  Names documented;
  for (const Row& row : markdownTable(contents("docs/script.md"), "| event | fields |"))
    documented.merge(markdownNames(row[0]));
  EXPECT_THAT(documented, ElementsAreArray(recordedEvents()));
}

// Checks links and pictures whose target is a file of the source tree. Addresses of web pages are ignored.
TEST(Documents, LinkOnlyToFilesThatExist) {
  static const std::regex link(R"(\]\(([^)#:]+)(#[^)]*)?\))");
  std::vector<std::string> broken;
  for (const fs::path folder : {".", "docs"}) {
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_FOLDER) / folder)) {
      if (entry.path().extension() != ".md") continue;
      const std::string text = contents(entry.path());
      for (std::sregex_iterator match(text.begin(), text.end(), link), end; match != end; ++match)
        if (!fs::exists(entry.path().parent_path() / (*match)[1].str()))
          broken.push_back(entry.path().filename().string() + ": " + (*match)[1].str());
    }
  }
  EXPECT_THAT(broken, IsEmpty());
}

}  // namespace
