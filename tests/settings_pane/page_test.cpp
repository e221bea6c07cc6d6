// Tests that the page's property list agrees with the list of settings and with the document.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <limits>
#include <map>
#include <regex>
#include <set>

#include "platform/ns_object.hpp"
#include "tests/settings_pane/pane_files.hpp"
#include "tests/support/markdown_table.hpp"

namespace {

using test::Json;
using testing::Contains;
using testing::UnorderedElementsAreArray;

struct Setting {
  bool isSwitch;
  NSInteger defaultValue;
};

constexpr Setting setting(bool value) { return {true, value ? 1 : 0}; }
constexpr Setting setting(NSInteger value) { return {false, value}; }

// The settings of the library, by key.
const std::map<std::string, Setting>& settings() {
  static const std::map<std::string, Setting> all = {
#define BRIM_SETTING(type, variable, key, defaultValue) {key, setting(static_cast<type>(defaultValue))},
#include "library/settings/settings_list.hpp"
  };
  return all;
}

bool isSlider(const Json& item) { return item.at("cell") == "PSSliderCell"; }
bool isList(const Json& item) { return item.at("cell") == "PSLinkListCell"; }

TEST(PanePage, ContainsEachSettingOnce) {
  std::vector<std::string> expected;
  for (const auto& [key, ignored] : settings()) expected.push_back(key);
  std::vector<std::string> keys;
  for (const Json& item : test::paneSettings()) keys.push_back(item.at("key"));
  EXPECT_THAT(keys, UnorderedElementsAreArray(expected));
}

TEST(PanePage, GivesEachSettingAControlOfItsTypeAndItsDefault) {
  for (const Json& item : test::paneSettings()) {
    SCOPED_TRACE(item.at("key"));
    const Setting& expected = settings().at(item.at("key"));
    EXPECT_EQ(item.at("cell") == "PSSwitchCell", expected.isSwitch);
    EXPECT_EQ(isSlider(item) || isList(item), !expected.isSwitch);
    EXPECT_EQ(item.at("default"), expected.isSwitch ? Json(expected.defaultValue != 0) : Json(expected.defaultValue));
  }
}

TEST(PanePage, StoresEachSettingInTheDomainThatBrimReadsAndAnnouncesTheChange) {
  for (const Json& item : test::paneSettings()) {
    SCOPED_TRACE(item.at("key"));
    EXPECT_EQ(item.at("defaults"), "com.marrowgate.brimprefs");
    EXPECT_EQ(item.at("PostNotification"), "com.marrowgate.brimprefs/ReloadPrefs");
  }
}

// The number of integers between two neighboring positions of the slider.
long stepOf(const Json& slider) {
  const long range = slider.at("max").get<long>() - slider.at("min").get<long>();
  EXPECT_EQ(range % slider.at("segmentCount").get<long>(), 0);
  return range / slider.at("segmentCount").get<long>();
}

TEST(PanePage, SlidersStopAtIntegersAndAtTheDefault) {
  std::size_t sliders = 0;
  for (const Json& item : test::paneSettings()) {
    if (!isSlider(item)) continue;
    SCOPED_TRACE(item.at("key"));
    ++sliders;
    EXPECT_EQ(item.at("isSegmented"), true);
    EXPECT_EQ(item.at("showValue"), true);
    for (const char* limit : {"min", "max", "segmentCount"}) EXPECT_TRUE(item.at(limit).is_number_integer()) << limit;
    EXPECT_LT(item.at("min"), item.at("max"));
    EXPECT_GE(item.at("default"), item.at("min"));
    EXPECT_LE(item.at("default"), item.at("max"));
    EXPECT_EQ((item.at("default").get<long>() - item.at("min").get<long>()) % stepOf(item), 0);
  }
  EXPECT_GT(sliders, 0U);
}

TEST(PanePage, ListsHaveATitleForEachValueAndContainTheDefault) {
  for (const Json& item : test::paneSettings()) {
    if (!isList(item)) continue;
    SCOPED_TRACE(item.at("key"));
    EXPECT_EQ(item.at("detail"), "PSListItemsController");
    const Json& values = item.at("validValues");
    EXPECT_EQ(values.size(), item.at("validTitles").size());
    EXPECT_EQ(std::set<Json>(values.begin(), values.end()).size(), values.size());
    for (const Json& value : values) EXPECT_TRUE(value.is_number_integer());
    EXPECT_THAT(values, Contains(item.at("default")));
  }
}

// The platform shows no label beside a slider, so the header of its group names it.
TEST(PanePage, EachSliderIsAloneInAGroupWithAHeader) {
  const Json items = test::paneItems();
  for (std::size_t index = 0; index < items.size(); ++index) {
    if (!isSlider(items[index])) continue;
    SCOPED_TRACE(items[index].at("key"));
    ASSERT_GT(index, 0U);
    EXPECT_EQ(items[index - 1].at("cell"), "PSGroupCell");
    EXPECT_TRUE(items[index - 1].contains("label"));
    EXPECT_TRUE(index + 1 == items.size() || items[index + 1].at("cell") == "PSGroupCell");
  }
}

TEST(PanePage, EveryOtherControlHasALabel) {
  for (const Json& item : test::paneItems())
    EXPECT_TRUE(item.at("cell") == "PSGroupCell" || isSlider(item) || item.contains("label")) << item;
}

TEST(PanePage, BeginsWithAGroupAndHasNoEmptyGroup) {
  const Json items = test::paneItems();
  const auto isGroup = [&](std::size_t index) { return items[index].at("cell") == "PSGroupCell"; };
  EXPECT_TRUE(isGroup(0));
  EXPECT_FALSE(isGroup(items.size() - 1));
  for (std::size_t index = 1; index < items.size(); ++index)
    EXPECT_FALSE(isGroup(index - 1) && isGroup(index)) << index;
}

TEST(PanePage, ExplainsThatTheMasterSwitchNeedsARestart) {
  const Json items = test::paneItems();
  EXPECT_EQ(items[1].at("key"), "enabled");
  const std::string footer = test::stringsTable("en").at(items[0].at("footerText"));
  EXPECT_THAT(footer, testing::HasSubstr("Restart the home screen"));
}

// A misspelled property has no effect on a phone.
TEST(PanePage, ContainsOnlyKnownProperties) {
  const std::map<std::string, std::set<std::string>> stored = {
      {"PSGroupCell", {"footerText"}},
      {"PSButtonCell", {"action"}},
      {"PSSwitchCell", {}},
      {"PSSliderCell", {"min", "max", "showValue", "isSegmented", "segmentCount"}},
      {"PSLinkListCell", {"detail", "validValues", "validTitles"}},
  };
  for (const Json& item : test::paneItems()) {
    const auto known = stored.find(item.at("cell").get<std::string>());
    ASSERT_NE(known, stored.end()) << item;
    for (const auto& [name, ignored] : item.items()) {
      const std::set<std::string> common = {"cell", "label", "key", "default", "defaults", "PostNotification"};
      EXPECT_TRUE(common.contains(name) || known->second.contains(name)) << name << " of " << item;
    }
  }
}

struct Documented {
  std::string values;
  std::string control;
};

// The settings in the document, by key.
std::map<std::string, Documented> documentedSettings() {
  std::ifstream stream(SETTINGS_DOCUMENT);
  const std::string text{std::istreambuf_iterator<char>(stream), {}};
  std::map<std::string, Documented> documented;
  for (const test::MarkdownRow& row : test::markdownTable(text, "| Key | Type | Default | Values | Pane |"))
    documented[*test::markdownNames(row.at(0)).begin()] = {row.at(3), row.at(4)};
  return documented;
}

std::string controlOf(const Json& item) {
  if (item.at("cell") == "PSSwitchCell") return "switch";
  if (isList(item)) return "list";
  const long step = stepOf(item);
  return item.at("min").dump() + " to " + item.at("max").dump() + (step == 1 ? "" : " by " + std::to_string(step));
}

TEST(PanePage, AgreesWithTheDocument) {
  const auto documented = documentedSettings();
  EXPECT_EQ(documented.size(), settings().size());
  for (const Json& item : test::paneSettings()) {
    const std::string key = item.at("key");
    EXPECT_EQ(documented.at(key).control, controlOf(item)) << key;
  }
}

// Returns the values that the document names, such as 1 and 2 in "1 left, 2 center".
std::vector<long> namedValues(const std::string& text) {
  static const std::regex value("(?:^|, )(\\d+) ");
  std::vector<long> values;
  for (std::sregex_iterator match(text.begin(), text.end(), value), end; match != end; ++match)
    values.push_back(std::stol((*match)[1]));
  return values;
}

TEST(PanePage, ListsOfferTheDocumentedValues) {
  const auto documented = documentedSettings();
  for (const Json& item : test::paneSettings()) {
    if (!isList(item)) continue;
    const std::string key = item.at("key");
    EXPECT_EQ(item.at("validValues").get<std::vector<long>>(), namedValues(documented.at(key).values)) << key;
  }
}

// Returns the smallest documented value of a range, such as 1 in "1 or more".
long minValue(const std::string& text) {
  if (text == "any") return std::numeric_limits<long>::min();
  const std::vector<long> named = namedValues(text);
  EXPECT_EQ(named.size(), 1U) << text;
  return named.empty() ? 0 : named.front();
}

TEST(PanePage, SlidersOfferNoValueBelowTheDocumentedRange) {
  const auto documented = documentedSettings();
  for (const Json& item : test::paneSettings()) {
    if (!isSlider(item)) continue;
    const std::string key = item.at("key");
    EXPECT_GE(item.at("min"), minValue(documented.at(key).values)) << key;
  }
}

}  // namespace
