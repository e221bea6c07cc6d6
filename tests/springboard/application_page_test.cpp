// Tests of the pages of applications, and of the home indicator that closes them.
#include <algorithm>

#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

constexpr int homeButton = 101;

// Returns whether one of the views is a label with the text. The names of icons are not labels.
bool containsLabel(const Json& views, const std::string& text) {
  return std::ranges::any_of(views, [&text](const Json& view) {
    return (view.at("class") == "UILabel" && view.at("text") == text) || containsLabel(view.at("children"), text);
  });
}

bool shows(PlainPhone& phone, const std::string& text) { return containsLabel(phone.run("tree").at("windows"), text); }

void tapAt(PlainPhone& phone, double x, double y) {
  phone.run("tap", {{"at", {x, y}}});
  phone.run("wait", {{"seconds", 1}});
}

void swipeUp(PlainPhone& phone, double distance) {
  phone.run("drag", {{"at", {187, 800}}, {"by", {0, -distance}}});
  phone.run("wait", {{"seconds", 1}});
}

TEST(ApplicationPage, OpensFromAnIconOfTheGrid) {
  PlainPhone phone;
  tapAt(phone, 57, 110);
  EXPECT_TRUE(shows(phone, "Calendar"));
}

TEST(ApplicationPage, OpensFromAnIconOfTheDock) {
  PlainPhone phone;
  tapAt(phone, 57, 760);
  EXPECT_TRUE(shows(phone, "Maps"));
}

TEST(ApplicationPage, OpensFromTheRightmostIconInRightToLeftLanguages) {
  PlainPhone phone({.locale = "ar_EG"});
  tapAt(phone, 318, 760);
  EXPECT_TRUE(shows(phone, "Maps"));
}

TEST(ApplicationPage, DoesNotOpenBesideAnIcon) {
  PlainPhone phone;
  tapAt(phone, 100, 110);
  EXPECT_FALSE(shows(phone, "Calendar"));
}

TEST(ApplicationPage, ClosesByASwipeFromTheHomeIndicator) {
  PlainPhone phone;
  tapAt(phone, 57, 110);
  swipeUp(phone, 30);
  EXPECT_TRUE(shows(phone, "Calendar"));
  swipeUp(phone, 200);
  EXPECT_FALSE(shows(phone, "Calendar"));
  tapAt(phone, 57, 760);
  EXPECT_TRUE(shows(phone, "Maps"));
}

TEST(ApplicationPage, ClosesWhenTheHomeButtonIsReleased) {
  PlainPhone phone({.device = "iphone-8"});
  tapAt(phone, 57, 80);
  ASSERT_TRUE(shows(phone, "Calendar"));
  phone.run("press", {{"type", homeButton}, {"force", 1}});
  phone.run("wait", {{"seconds", 1}});
  EXPECT_TRUE(shows(phone, "Calendar"));
  phone.run("press", {{"type", homeButton}, {"force", 0}});
  phone.run("wait", {{"seconds", 1}});
  EXPECT_FALSE(shows(phone, "Calendar"));
}

TEST(ApplicationPage, StaysOpenBehindTheLockScreen) {
  PlainPhone phone;
  tapAt(phone, 57, 110);
  phone.run("lock");
  phone.run("press", {{"type", homeButton}, {"force", 0}});
  phone.run("wait", {{"seconds", 1}});
  EXPECT_TRUE(shows(phone, "Calendar"));
}

TEST(ApplicationPage, AppearsBelowBanners) {
  PlainPhone phone;
  tapAt(phone, 57, 110);
  phone.present({{"title", "Anna"}});
  phone.run("wait", {{"seconds", 1}});
  const Json windows = phone.run("tree").at("windows");
  EXPECT_FALSE(containsLabel(Json::array({windows.back()}), "Calendar"));
  EXPECT_TRUE(containsLabel(Json::array({windows.back()}), "Anna"));
}

TEST(LockScreenSwipe, Unlocks) {
  PlainPhone phone;
  phone.run("lock");
  swipeUp(phone, 200);
  EXPECT_TRUE(PlainPhone::find(phone.run("tree").at("windows"), "class", "NCNotificationListView").is_null());
  phone.run("lock");
  EXPECT_FALSE(PlainPhone::find(phone.run("tree").at("windows"), "class", "NCNotificationListView").is_null());
}

TEST(LockScreenSwipe, DoesNotUnlockIfThePhoneIsLockedAgainMeanwhile) {
  PlainPhone phone;
  phone.run("lock");
  phone.run("drag", {{"at", {187, 800}}, {"by", {0, -200}}});
  phone.run("lock");
  phone.run("wait", {{"seconds", 1}});
  EXPECT_FALSE(PlainPhone::find(phone.run("tree").at("windows"), "class", "NCNotificationListView").is_null());
}

TEST(HomeIndicator, DoesNotExistOnADeviceWithAHomeButton) {
  PlainPhone phone({.device = "iphone-8"});
  phone.run("lock");
  EXPECT_TRUE(PlainPhone::find(phone.run("tree").at("windows"), "class", "SBHomeIndicatorView").is_null());
}

}  // namespace
