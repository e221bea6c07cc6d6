// Tests of the notification center, which is pulled down from the upper edge of an unlocked phone.
#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

Json list(PlainPhone& phone) {
  return PlainPhone::find(phone.run("tree").at("windows"), "class", "NCNotificationListView");
}
bool isOpen(PlainPhone& phone) { return !list(phone).is_null(); }

bool shows(PlainPhone& phone, const std::string& text) {
  return !PlainPhone::find(Json::array({list(phone)}), "text", text).is_null();
}

// Returns the top of the list. The list is at a fixed distance below the top of the sheet.
double topOfList(PlainPhone& phone) { return list(phone).at("frame")[1]; }

void drag(PlainPhone& phone, double x, double y, double distance, const char* end = "release") {
  phone.run("drag", {{"at", {x, y}}, {"by", {0, distance}}, {"end", end}});
}

void pullDown(PlainPhone& phone) {
  drag(phone, 187, 5, 700);
  phone.wait(1);
}

TEST(NotificationCenter, OpensWithADragFromTheUpperEdge) {
  PlainPhone phone;
  phone.present({{"message", "Lunch?"}, {"dismissAutomatically", true}});
  phone.wait(8);
  EXPECT_FALSE(isOpen(phone));
  pullDown(phone);
  EXPECT_TRUE(shows(phone, "Lunch?"));
}

TEST(NotificationCenter, FollowsTheFinger) {
  PlainPhone phone;
  drag(phone, 187, 5, 400, "hold");
  const double first = topOfList(phone);
  phone.run("drag", {{"by", {0, 100}}, {"end", "hold"}});
  EXPECT_DOUBLE_EQ(topOfList(phone), first + 100);
  phone.run("drag", {{"by", {0, 0}}});
  phone.wait(1);
  EXPECT_DOUBLE_EQ(topOfList(phone), first + 812 - 405);
}

TEST(NotificationCenter, ClosesAgainAfterAShortOrCanceledPull) {
  PlainPhone phone;
  drag(phone, 187, 5, 150);
  phone.wait(1);
  EXPECT_FALSE(isOpen(phone));
  drag(phone, 187, 5, 700, "cancel");
  phone.wait(1);
  EXPECT_FALSE(isOpen(phone));
}

TEST(NotificationCenter, OpensAfterAShortButFastPull) {
  PlainPhone phone;
  drag(phone, 187, 5, 50, "hold");
  phone.wait(0.05);
  phone.run("drag", {{"by", {0, 100}}, {"steps", 1}});
  phone.wait(1);
  EXPECT_TRUE(isOpen(phone));
}

TEST(NotificationCenter, ClosesWithASwipeFromTheLowerEdge) {
  PlainPhone phone;
  pullDown(phone);
  ASSERT_TRUE(isOpen(phone));
  drag(phone, 187, 805, -100);
  phone.wait(1);
  EXPECT_TRUE(isOpen(phone));
  drag(phone, 187, 805, -400);
  phone.wait(1);
  EXPECT_FALSE(isOpen(phone));
}

TEST(NotificationCenter, ClosesOnADeviceWithAHomeButton) {
  PlainPhone phone({.device = "iphone-se"});
  pullDown(phone);
  ASSERT_TRUE(isOpen(phone));
  drag(phone, 160, 560, -400);
  phone.wait(1);
  EXPECT_FALSE(isOpen(phone));
  pullDown(phone);
  phone.run("press", {{"type", 101}, {"force", 0}});
  phone.wait(1);
  EXPECT_FALSE(isOpen(phone));
}

TEST(NotificationCenter, DoesNotOpenFromABanner) {
  PlainPhone phone({.device = "iphone-se"});
  phone.present();
  phone.wait(1);
  drag(phone, 160, 12, 500);
  phone.wait(1);
  EXPECT_FALSE(isOpen(phone));
}

TEST(NotificationCenter, DoesNotOpenOnTheLockScreen) {
  PlainPhone phone;
  phone.run("lock");
  const double top = topOfList(phone);
  pullDown(phone);
  EXPECT_DOUBLE_EQ(topOfList(phone), top);
  phone.run("press", {{"type", 101}, {"force", 0}});
  EXPECT_FALSE(isOpen(phone));
}

TEST(NotificationCenter, IsReplacedByTheLockScreen) {
  PlainPhone phone;
  pullDown(phone);
  phone.run("lock");
  phone.present({{"message", "Later"}});
  EXPECT_TRUE(shows(phone, "Later"));
  phone.run("press", {{"type", 101}, {"force", 0}});
  phone.wait(1);
  EXPECT_FALSE(isOpen(phone));
}

TEST(NotificationCenter, TapOnANotificationOpensItsApplicationAndCloses) {
  PlainPhone phone;
  phone.present({{"message", "Lunch?"}});
  phone.wait(8);
  pullDown(phone);
  phone.log();
  phone.run("tap", {{"label", "Lunch?"}});
  phone.wait(1);
  const Json events = phone.log();
  ASSERT_EQ(events.size(), 2U);
  EXPECT_EQ(events[0].at("identifier"), "com.apple.UNNotificationDefaultActionIdentifier");
  EXPECT_EQ(events[1].at("event"), "launch");
  EXPECT_FALSE(isOpen(phone));
}

TEST(NotificationCenter, UpdatesWithTheListAndTheClock) {
  PlainPhone phone({.time = 1584178860});
  pullDown(phone);
  phone.present({{"message", "Later"}});
  EXPECT_TRUE(shows(phone, "Later"));
  phone.wait(150);
  EXPECT_TRUE(shows(phone, "2m ago"));
}

}  // namespace
