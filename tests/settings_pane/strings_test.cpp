// Tests of the pane's texts in all languages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>

#include "platform/ns_string.hpp"
#include "tests/settings_pane/pane_files.hpp"

namespace {

using test::Json;
using testing::ElementsAreArray;
using testing::IsEmpty;

// Names of products, which are the same in every language.
const std::set<std::string> names = {"WhatsApp", "Slack", "Discord", "Twitter", "Instagram", "Messenger", "Telegram"};

std::set<std::string> textsOfThePage() {
  std::set<std::string> texts;
  for (const Json& item : test::paneItems()) {
    for (const char* property : {"label", "footerText"})
      if (item.contains(property)) texts.insert(item.at(property).get<std::string>());
    for (const Json& title : item.value("validTitles", Json::array())) texts.insert(title.get<std::string>());
  }
  return texts;
}

std::set<std::string> keysOf(const Json& table) {
  std::set<std::string> keys;
  for (const auto& [key, ignored] : table.items()) keys.insert(key);
  return keys;
}

TEST(PaneStrings, AreExactlyTheTextsOfThePage) {
  std::set<std::string> expected = textsOfThePage();
  for (const std::string& name : names) EXPECT_EQ(expected.erase(name), 1U) << name;
  EXPECT_GT(expected.size(), 50U);
  for (const char* language : test::languages)
    EXPECT_THAT(keysOf(test::stringsTable(language)), ElementsAreArray(expected)) << language;
}

TEST(PaneStrings, BundleHasOneTableForEachLanguage) {
  std::set<std::string> expected;
  for (const char* language : test::languages) expected.insert(std::string(language) + ".lproj");
  // Hebrew under its old language code.
  expected.insert("iw.lproj");
  std::set<std::string> folders;
  for (const auto& entry : std::filesystem::directory_iterator(test::paneBundle()))
    if (entry.path().extension() == ".lproj") folders.insert(entry.path().filename());
  EXPECT_THAT(folders, ElementsAreArray(expected));
  EXPECT_EQ(test::stringsTable("iw"), test::stringsTable("he"));
}

// A parser keeps only one of two equal keys.
TEST(PaneStrings, NoKeyOccursTwice) {
  for (const char* language : test::languages) {
    std::ifstream stream(test::paneBundle() / (std::string(language) + ".lproj") / "Root.strings");
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    std::erase(text, '\0');
    static const std::regex line(R"re("([0-9A-Z_]+)" = ")re");
    const auto count = std::distance(std::sregex_iterator(text.begin(), text.end(), line), std::sregex_iterator());
    EXPECT_EQ(static_cast<std::size_t>(count), test::stringsTable(language).size()) << language;
  }
}

TEST(PaneStrings, NoTextIsLeftInEnglish) {
  const std::set<std::pair<std::string, std::string>> sameWord = {
      {"de", "BANNER"}, {"es", "COLOR"}, {"fr", "MESSAGES"}};
  const Json english = test::stringsTable("en");
  std::vector<std::pair<std::string, std::string>> untranslated;
  for (const char* language : test::languages) {
    if (std::string(language) == "en") continue;
    const Json table = test::stringsTable(language);
    for (const auto& [key, text] : table.items())
      if (text == english.at(key) && !sameWord.contains({language, key})) untranslated.emplace_back(language, key);
  }
  EXPECT_THAT(untranslated, IsEmpty());
}

// Returns whether the UTF-8 text contains a character from first to last.
bool containsCharacter(const std::string& text, char16_t first, char16_t last) {
  const objc::AutoreleasePool pool;
  const NSString* const characters = base::stringOf(text);
  for (NSUInteger index = 0; index < characters->length(); ++index) {
    const auto character = objc::send<std::uint16_t, "characterAtIndex:">(characters, index);
    if (character >= first && character <= last) return true;
  }
  return false;
}

TEST(PaneStrings, EveryTextIsWrittenInTheScriptOfItsLanguage) {
  struct Script {
    char16_t first;
    char16_t last;
  };
  const std::map<std::string, std::vector<Script>> scripts = {
      {"ru", {{0x400, 0x4ff}}},   {"uk", {{0x400, 0x4ff}}},        {"ja", {{0x3040, 0x30ff}, {0x4e00, 0x9fff}}},
      {"ko", {{0xac00, 0xd7a3}}}, {"zh-Hans", {{0x4e00, 0x9fff}}}, {"zh-Hant", {{0x4e00, 0x9fff}}},
      {"ar", {{0x600, 0x6ff}}},   {"he", {{0x590, 0x5ff}}},
  };
  for (const auto& [language, ranges] : scripts) {
    const Json table = test::stringsTable(language);
    for (const auto& [key, value] : table.items()) {
      const std::string text = value;
      EXPECT_TRUE(std::ranges::any_of(
          ranges, [&](const Script& script) { return containsCharacter(text, script.first, script.last); }))
          << language << " " << key << ": " << text;
    }
  }
}

// A label must fit in a row beside its control, a header in one line.
TEST(PaneStrings, LabelsAreShortAndFootersAreSentences) {
  for (const char* language : test::languages) {
    const Json table = test::stringsTable(language);
    for (const auto& [key, value] : table.items()) {
      const objc::AutoreleasePool pool;
      const std::string text = value;
      const NSUInteger length = base::stringOf(text)->length();
      SCOPED_TRACE(std::string(language) + " " + key + ": " + text);
      if (key.ends_with("_FOOTER")) {
        EXPECT_TRUE(text.ends_with(".") || text.ends_with("。"));
        EXPECT_LE(length, 200U);
      } else {
        EXPECT_FALSE(text.ends_with(".") || text.ends_with("。"));
        EXPECT_LE(length, 45U);
      }
    }
  }
}

}  // namespace
