// Tests that every setting of the settings pane has a working control in the Settings application.
#include <algorithm>
#include <cstdlib>

#include "simulator/foundation/run_loop.hpp"
#include "tests/settings_application/settings_phone.hpp"

namespace {

using test::Json;
using test::middleOf;
using test::SettingsPhone;

// A value that the control can have, other than the default, and that the test selects.
Json otherValue(const Json& item) {
  if (item.at("default").is_boolean()) return !item.at("default").get<bool>();
  if (item.contains("max")) return item.at("max");
  const Json& values = item.at("validValues");
  return values.back() == item.at("default") ? values.front() : values.back();
}

void dragToTheEnd(SettingsPhone& phone, const Json& item) {
  phone.drag(middleOf(phone.control(item.at("key"), "_UIThumbView")), 400, 0, 2);
}

void toggle(SettingsPhone& phone, const Json& item) {
  phone.tapAt(middleOf(phone.control(item.at("key"), "UISwitch")));
}

void choose(SettingsPhone& phone, const Json& item) {
  const Json& values = item.at("validValues");
  const auto index = static_cast<std::size_t>(std::ranges::find(values, otherValue(item)) - values.begin());
  const std::string title = test::stringsTable("en").at(item.at("validTitles").at(index).get<std::string>());
  phone.tapAt(middleOf(phone.row(item.at("key"))));
  phone.tapLabel(title);
  phone.tapLabel("Brim");
}

struct Operation {
  const char* cell;
  void (*select)(SettingsPhone& phone, const Json& item);
};
constexpr Operation operations[] = {
    {"PSSwitchCell", &toggle},
    {"PSSliderCell", &dragToTheEnd},
    {"PSLinkListCell", &choose},
};

TEST(SettingsControls, StoreTheSelectedValueOfEverySetting) {
  SettingsPhone phone;
  phone.open();
  ASSERT_FALSE(test::paneSettings().empty());
  for (const Json& item : test::paneSettings()) {
    SCOPED_TRACE(item.at("key"));
    const auto* const operation =
        std::ranges::find_if(operations, [&](const Operation& each) { return item.at("cell") == each.cell; });
    ASSERT_NE(operation, std::ranges::end(operations));
    phone.reveal(item.at("key"));
    operation->select(phone, item);
    EXPECT_EQ(phone.storedValue(item.at("key")), otherValue(item));
  }
  const Json settings = phone.phone.run({{"do", "settings"}}).at("settings");
  for (const Json& item : test::paneSettings())
    EXPECT_EQ(settings.at(item.at("key").get<std::string>()), otherValue(item)) << item.at("key");
}

TEST(SettingsControls, ShowTheDefaults) {
  SettingsPhone phone;
  phone.open();
  EXPECT_EQ(phone.control("backgroundBlur", "UISwitch").at("on"), Json(true));
  EXPECT_EQ(phone.control("tinyBanner", "UISwitch").at("on"), Json(false));
  EXPECT_EQ(phone.control("appSize", "UISlider").at("value"), 40);
  EXPECT_TRUE(phone.rowShows("appSize", "40"));
  EXPECT_TRUE(phone.rowShows("containerColor", "Automatic"));
}

TEST(SettingsControls, ShowTheStoredValues) {
  SettingsPhone phone({.options = {}, .settings = {{"tinyBanner", true}, {"appSize", 66}, {"containerColor", 3}}});
  phone.open();
  EXPECT_EQ(phone.control("tinyBanner", "UISwitch").at("on"), Json(true));
  EXPECT_EQ(phone.control("appSize", "UISlider").at("value"), 66);
  EXPECT_TRUE(phone.rowShows("containerColor", "Black"));
}

TEST(SettingsControls, ShowChangesMadeElsewhere) {
  SettingsPhone phone;
  phone.open();
  phone.phone.set("tinyBanner", true);
  phone.phone.set("appSize", 70);
  phone.phone.set("containerColor", 1);
  EXPECT_EQ(phone.control("tinyBanner", "UISwitch").at("on"), Json(true));
  EXPECT_EQ(phone.control("appSize", "UISlider").at("value"), 70);
  EXPECT_TRUE(phone.rowShows("containerColor", "Dark"));
  phone.phone.set("tinyBanner", nullptr);
  EXPECT_EQ(phone.control("tinyBanner", "UISwitch").at("on"), Json(false));
}

TEST(SettingsControls, ShowChangesByAnotherProcess) {
  SettingsPhone phone;
  phone.open();
  EXPECT_EQ(std::system("defaults write com.marrowgate.brimprefs tinyBanner YES"), 0);
  foundation::pumpRunLoop();
  EXPECT_EQ(phone.control("tinyBanner", "UISwitch").at("on"), Json(true));
}

TEST(SettingsControls, PostANotificationAfterAChange) {
  SettingsPhone phone;
  phone.open();
  phone.phone.log();
  phone.tapAt(middleOf(phone.control("backgroundBlur", "UISwitch")));
  const std::vector<Json> posts = test::eventsOf(phone.phone.log(), "distributed");
  ASSERT_EQ(posts.size(), 1U);
  EXPECT_EQ(posts.front().at("name"), "com.marrowgate.brimprefs/ReloadPrefs");
}

TEST(SettingsControls, ShowTheStoredValueIfAChangeCannotBeStored) {
  SettingsPhone phone;
  phone.open();
  std::filesystem::create_directories(phone.preferencesFile() / "folder");
  phone.tapAt(middleOf(phone.control("backgroundBlur", "UISwitch")));
  EXPECT_EQ(phone.control("backgroundBlur", "UISwitch").at("on"), Json(true));
}

TEST(SettingsControls, ButtonShowsATestBanner) {
  SettingsPhone phone;
  phone.open();
  phone.tapLabel("Show a Test Banner");
  phone.phone.run({{"do", "await"}, {"for", "idle"}});
  phone.phone.wait(1);
  EXPECT_EQ(phone.phone.view(1, "bodyLabel").at("text"), "Test notification");
}

}  // namespace
