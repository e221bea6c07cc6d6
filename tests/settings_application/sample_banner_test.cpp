// Tests of the sample banner above the controls. It is a real banner that follows the settings and is isolated from
// presented banners.
#include "tests/settings_application/settings_phone.hpp"

namespace {

using test::Json;
using test::middleOf;
using test::SettingsPhone;

double height(const Json& node) { return node.at("frame").at(3); }

TEST(SampleBanner, IsABannerOfTheLibraryAtTheUsualPosition) {
  SettingsPhone phone;
  phone.open();
  const Json sample = phone.sample();
  ASSERT_FALSE(sample.is_null());
  const int controller = phone.phone.present({{"title", "Anna Weber"}, {"message", "Lunch?"}});
  phone.phone.wait(1);
  const Json banner = phone.phone.banner(controller);
  EXPECT_EQ(banner.at("frame").at(0), sample.at("frame").at(0));
  EXPECT_EQ(banner.at("frame").at(1), sample.at("frame").at(1));
  EXPECT_EQ(banner.at("frame").at(2), sample.at("frame").at(2));
}

TEST(SampleBanner, FollowsAControl) {
  SettingsPhone phone;
  phone.open();
  EXPECT_EQ(phone.sample().value("cornerRadius", 0), 30);
  phone.drag(middleOf(phone.control("containerCornerRadius", "_UIThumbView")), -400, 0);
  EXPECT_EQ(phone.sample().value("cornerRadius", 0), 0);
}

TEST(SampleBanner, FollowsAChangeMadeElsewhere) {
  SettingsPhone phone;
  phone.open();
  const double before = height(phone.sample());
  phone.phone.set("tinyBanner", true);
  EXPECT_LT(height(phone.sample()), before);
}

TEST(SampleBanner, DoesNotCountAsAPresentedBanner) {
  SettingsPhone phone;
  phone.phone.log();
  phone.open();
  phone.phone.set("tinyBanner", true);
  EXPECT_EQ(phone.phone.log(), Json::array());
  EXPECT_EQ(phone.phone.run({{"do", "notifications"}}).at("notifications"), Json::array());
  EXPECT_NE(phone.phone.runExpectingError({{"do", "state"}, {"controller", 1}}).find("none has been presented"),
            std::string::npos);
  EXPECT_NE(phone.phone.runExpectingError({{"do", "drag"}, {"by", {0, 50}}}).find("no banner"), std::string::npos);
}

TEST(SampleBanner, IgnoresTouches) {
  SettingsPhone phone;
  phone.open();
  const Json before = phone.sample();
  phone.drag(middleOf(before), 0, 120);
  phone.tapAt(middleOf(before));
  EXPECT_EQ(phone.sample(), before);
}

TEST(SampleBanner, RemainsWhenPresentedBannersAppearAndDisappear) {
  SettingsPhone phone({.options = {}, .settings = {{"timeToDismiss", 2}}});
  phone.open();
  const Json sample = phone.sample();
  const int controller = phone.phone.present({{"title", "Anna"}});
  phone.phone.wait(10);
  EXPECT_TRUE(phone.phone.state(controller).at("dismissed"));
  EXPECT_EQ(phone.sample(), sample);
  phone.phone.run({{"do", "lock"}});
  phone.phone.wait(1);
  EXPECT_EQ(phone.sample(), sample);
}

TEST(SampleBanner, DoesNotChangeABannerOnTheScreen) {
  SettingsPhone phone;
  phone.open();
  const int controller = phone.phone.present({{"title", "Anna"}, {"message", "Lunch?"}});
  phone.phone.wait(1);
  phone.phone.set("tinyBanner", true);
  phone.phone.wait(0.7);
  EXPECT_FALSE(phone.phone.state(controller).at("wasExternallyDismissed"));
  // The library regards this banner as the newest one. Otherwise, the expanded banner would dismiss itself.
  phone.phone.run({{"do", "drag"}, {"controller", controller}, {"by", {0, 120}}});
  phone.phone.wait(20);
  EXPECT_TRUE(phone.phone.state(controller).at("expanded"));
  EXPECT_FALSE(phone.phone.state(controller).at("dismissed"));
}

TEST(SampleBanner, ShowsAPostponedChangeWhenNoBannerIsOnTheScreen) {
  SettingsPhone phone;
  phone.open();
  const double before = height(phone.sample());
  phone.phone.present({{"title", "Anna"}});
  phone.phone.wait(1);
  phone.phone.set("tinyBanner", true);
  EXPECT_EQ(height(phone.sample()), before);
  phone.phone.wait(10);
  EXPECT_LT(height(phone.sample()), before);
}

TEST(SampleBanner, ShowsThePlatformsBannerWithoutTheLibrary) {
  SettingsPhone phone({.options = {.library = process::LibraryUse::Absent}, .settings = {}});
  phone.open();
  EXPECT_TRUE(phone.sample().is_null());
  EXPECT_FALSE(test::nodeBelow(phone.application(), "class", "NCNotificationShortLookView").is_null());
}

}  // namespace
