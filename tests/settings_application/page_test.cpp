// Tests of the page of the Settings application: opening and closing, scrolling, the list of values, languages and
// appearance.
#include "tests/library/live_objects.hpp"
#include "tests/settings_application/settings_phone.hpp"

namespace {

using test::Json;
using test::middleOf;
using test::SettingsPhone;

constexpr int homeButton = 101;

double top(const Json& node) { return node.at("frame").at(1); }
double left(const Json& node) { return node.at("frame").at(0); }

TEST(SettingsPage, ClosesByASwipeFromTheHomeIndicator) {
  SettingsPhone phone;
  phone.open();
  EXPECT_FALSE(phone.application().is_null());
  phone.drag({187, 800}, 0, -200);
  phone.phone.wait(1);
  EXPECT_TRUE(phone.application().is_null());
  phone.open();
  EXPECT_FALSE(phone.application().is_null());
}

TEST(SettingsPage, ClosesWhenTheHomeButtonIsReleased) {
  SettingsPhone phone({.options = {.device = "iphone-8"}, .settings = {}});
  phone.open();
  phone.phone.run({{"do", "press"}, {"type", homeButton}, {"force", 0}});
  phone.phone.wait(1);
  EXPECT_TRUE(phone.application().is_null());
}

void openAndClose(SettingsPhone& phone) {
  const objc::AutoreleasePool pool;
  phone.open();
  phone.tapAt(middleOf(phone.row("containerColor")));
  phone.drag({187, 800}, 0, -200);
  // The library retains the sample's controller for the time after which a banner is dismissed automatically.
  phone.phone.wait(10);
}

TEST(SettingsPage, ReleasesItsObjectsWhenItCloses) {
  SettingsPhone phone;
  openAndClose(phone);
  test::startCountingLiveObjects();
  openAndClose(phone);
  const std::ptrdiff_t before = test::liveObjectCount();
  for (int round = 0; round < 3; ++round) openAndClose(phone);
  EXPECT_EQ(test::liveObjectCount(), before);
}

double statusBarAlpha(SettingsPhone& phone) { return phone.view("UIStatusBarWindow").at("alpha"); }

TEST(SettingsPage, HidesTheStatusBarExceptOnTheLockScreen) {
  SettingsPhone phone;
  phone.open();
  EXPECT_EQ(statusBarAlpha(phone), 0);
  phone.phone.run({{"do", "lock"}});
  EXPECT_EQ(statusBarAlpha(phone), 1);
  phone.phone.run({{"do", "press"}, {"type", homeButton}, {"force", 0}});
  EXPECT_EQ(statusBarAlpha(phone), 0);
  phone.drag({187, 800}, 0, -200);
  EXPECT_EQ(statusBarAlpha(phone), 1);
}

TEST(SettingsPage, ScrollsWithTheFingerAndStopsAtTheEnds) {
  SettingsPhone phone;
  phone.open();
  const double start = top(phone.row("enabled"));
  phone.drag({4, 500}, 0, 300);
  EXPECT_EQ(top(phone.row("enabled")), start);
  phone.drag({4, 500}, 0, -100);
  EXPECT_EQ(top(phone.row("enabled")), start - 100);
  phone.drag({4, 500}, 0, -100000);
  const Json table = phone.table();
  const double bottom = top(table) + table.at("frame").at(3).get<double>();
  const double end = top(phone.row("enableTelegram"));
  EXPECT_LT(end, bottom);
  EXPECT_GT(end, bottom - 200);
}

TEST(SettingsPage, HidesTheSectionsThatAreNotVisible) {
  SettingsPhone phone;
  phone.open();
  const auto isHidden = [&](const char* footer) {
    const std::string text = test::stringsTable("en").at(footer);
    return test::nodeBelow(phone.table(), "text", text).at("hidden").get<bool>();
  };
  EXPECT_FALSE(isHidden("ENABLED_FOOTER"));
  EXPECT_TRUE(isHidden("PHOTO_SOURCES_FOOTER"));
  phone.reveal("enableTelegram");
  EXPECT_TRUE(isHidden("ENABLED_FOOTER"));
  EXPECT_FALSE(isHidden("PHOTO_SOURCES_FOOTER"));
}

TEST(SettingsPage, ADragOnARowScrollsAndDoesNotOperateTheControl) {
  SettingsPhone phone;
  phone.open();
  const double start = top(phone.row("backgroundBlur"));
  phone.drag(middleOf(phone.control("backgroundBlur", "UISwitch")), 0, -60);
  EXPECT_EQ(top(phone.row("backgroundBlur")), start - 60);
  EXPECT_TRUE(phone.storedValue("backgroundBlur").is_null());
}

TEST(SettingsPage, ADragOfASliderDoesNotScroll) {
  SettingsPhone phone;
  phone.open();
  const double start = top(phone.row("containerCornerRadius"));
  phone.drag(middleOf(phone.control("containerCornerRadius", "_UIThumbView")), 30, -100);
  EXPECT_EQ(top(phone.row("containerCornerRadius")), start);
  EXPECT_GT(phone.storedValue("containerCornerRadius"), 30);
}

TEST(SettingsPage, ListOfValuesShowsTheSelectedValueAndHasABackButton) {
  SettingsPhone phone;
  phone.open();
  phone.tapAt(middleOf(phone.row("containerColor")));
  EXPECT_TRUE(phone.shows("Light"));
  phone.tapLabel("Light");
  EXPECT_EQ(phone.storedValue("containerColor"), 2);
  phone.tapLabel("Brim");
  EXPECT_TRUE(phone.rowShows("containerColor", "Light"));
  EXPECT_EQ(left(phone.table()), 0);
  phone.tapLabel("Brim");
  EXPECT_EQ(left(phone.table()), 0);
}

TEST(SettingsPage, ShowsTheTextsInTheLanguageOfThePhone) {
  SettingsPhone phone({.options = {.locale = "de_DE"}, .settings = {}});
  phone.open();
  EXPECT_TRUE(phone.shows("Brim aktivieren"));
}

TEST(SettingsPage, IsMirroredInRightToLeftLanguages) {
  SettingsPhone phone({.options = {.locale = "he_IL"}, .settings = {{"topOffset", 0}}});
  phone.open();
  EXPECT_LT(left(phone.control("enabled", "UISwitch")), 100);
  EXPECT_LT(left(phone.control("enabled", "UISwitch")), left(phone.control("enabled", "UILabel")));
  EXPECT_GT(left(phone.control("topOffset", "_UIThumbView")), 200);
  phone.reveal("topOffset");
  phone.drag(middleOf(phone.control("topOffset", "_UIThumbView")), -400, 0);
  EXPECT_EQ(phone.storedValue("topOffset"), 30);
}

TEST(SettingsPage, FollowsTheAppearance) {
  SettingsPhone phone;
  phone.open();
  const auto background = [&] { return phone.table().at("background"); };
  const Json light = background();
  phone.phone.run({{"do", "appearance"}, {"style", "dark"}});
  const Json dark = background();
  EXPECT_NE(dark, light);
  const std::string switched = phone.phone.picture();
  phone.phone.run({{"do", "appearance"}, {"style", "light"}});
  EXPECT_EQ(background(), light);
  EXPECT_NE(phone.phone.picture(), switched);
}

}  // namespace
