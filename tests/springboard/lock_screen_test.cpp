// Tests of the lock screen: its clock and its notification list.
#include <cmath>

#include "simulator/drawing/image.hpp"
#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

// The visible cells of the list, from top to bottom.
std::vector<Json> cells(PlainPhone& phone) {
  const Json list = PlainPhone::find(phone.run("tree").at("windows"), "class", "NCNotificationListView");
  return list.is_null() ? std::vector<Json>{} : list.at("children").get<std::vector<Json>>();
}

bool hasText(const Json& cell, const std::string& text) {
  return !PlainPhone::find(Json::array({cell}), "text", text).is_null();
}

TEST(LockScreen, ListsNotificationsLatestFirst) {
  PlainPhone phone({.time = 1584178860});
  phone.present({{"section", "a.mail"}, {"message", "Earlier"}, {"at", "2020-03-14T07:00:00Z"}});
  phone.present({{"section", "a.chat"}, {"message", "Later"}, {"at", "2020-03-14T09:36:00Z"}});
  phone.run("lock");
  const auto shown = cells(phone);
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_TRUE(hasText(shown[0], "Later"));
  EXPECT_TRUE(hasText(shown[0], "5m ago"));
  EXPECT_TRUE(hasText(shown[1], "Earlier"));
  EXPECT_TRUE(hasText(shown[1], "2h ago"));
  const Json& first = shown[0].at("frame");
  EXPECT_GE(shown[1].at("frame")[1].get<double>(), first[1].get<double>() + first[3].get<double>());
  EXPECT_FALSE(PlainPhone::find(phone.run("tree").at("windows"), "text", "Saturday, March 14").is_null());
}

TEST(LockScreen, StacksAConversation) {
  PlainPhone phone;
  for (const char* message : {"One", "Two", "Three"}) phone.present({{"thread", "anna"}, {"message", message}});
  phone.present({{"thread", "ben"}, {"message", "Other"}});
  phone.run("lock");
  const auto shown = cells(phone);
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_TRUE(hasText(shown[0], "Other"));
  EXPECT_TRUE(hasText(shown[1], "Three"));
  EXPECT_FALSE(hasText(shown[1], "Two"));
  EXPECT_TRUE(hasText(shown[1], "2 more notifications"));
}

TEST(LockScreen, StacksNothingBelowSystemVersionTwelve) {
  PlainPhone phone({.systemVersion = "11.4"});
  for (const char* message : {"One", "Two"}) phone.present({{"thread", "anna"}, {"message", message}});
  phone.run("lock");
  EXPECT_EQ(cells(phone).size(), 2U);
}

TEST(LockScreen, UpdatesWithTheList) {
  PlainPhone phone;
  phone.run("lock");
  EXPECT_EQ(cells(phone).size(), 0U);
  phone.present({{"identifier", "1"}, {"message", "Hello"}});
  ASSERT_EQ(cells(phone).size(), 1U);
  phone.present({{"identifier", "1"}, {"message", "Goodbye"}});
  ASSERT_EQ(cells(phone).size(), 1U);
  EXPECT_TRUE(hasText(cells(phone)[0], "Goodbye"));
  phone.run("withdraw");
  EXPECT_EQ(cells(phone).size(), 0U);
}

double rightEdge(const Json& view) { return view.at("frame")[0].get<double>() + view.at("frame")[2].get<double>(); }

TEST(LockScreen, UpdatesWithTheClock) {
  PlainPhone phone({.time = 1584178860});
  phone.present();
  phone.run("lock");
  const double edge = rightEdge(PlainPhone::find(cells(phone), "text", "now"));
  phone.wait(150);
  const Json date = PlainPhone::find(cells(phone), "text", "2m ago");
  ASSERT_FALSE(date.is_null());
  EXPECT_NEAR(rightEdge(date), edge, 0.1);
  EXPECT_GT(date.at("frame")[2], 40);
  const Json windows = phone.run("tree").at("windows");
  EXPECT_FALSE(PlainPhone::find(windows, "text", "9:43").is_null());
}

// Returns the relative luminance of a pixel, from which the contrast of a text is computed.
double relativeLuminance(std::uint32_t pixel) {
  const auto linear = [pixel](int shift) { return std::pow((pixel >> shift & 0xFF) / 255.0, 2.2); };
  return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

class LockScreenDate : public testing::TestWithParam<const char*> {};

TEST_P(LockScreenDate, IsReadableOnTheWallpaper) {
  PlainPhone phone({.device = GetParam(), .time = 1584178860});
  const auto path = phone.folder() / "lock.png";
  for (const char* style : {"light", "dark"}) {
    phone.run("appearance", {{"style", style}});
    phone.run("lock");
    const Json frame = PlainPhone::find(phone.run("tree").at("windows"), "text", "Saturday, March 14").at("frame");
    phone.run("screenshot", {{"path", path.string()}, {"scale", 1}});
    const auto screen = drawing::loadImage(path);
    ASSERT_NE(screen, nullptr);
    const int top = frame[1].get<int>();
    const int bottom = top + frame[3].get<int>() - 1;
    for (const int y : {top, bottom})
      for (int x = 0; x < screen->pixelWidth(); ++x)
        EXPECT_GE(1.05 / (relativeLuminance(screen->pixel(x, y)) + 0.05), 4.5) << style << " at " << x << "," << y;
  }
}

INSTANTIATE_TEST_SUITE_P(Devices, LockScreenDate, testing::Values("iphone-se", "iphone-8", "iphone-x"),
                         [](const auto& device) {
                           std::string name = device.param;
                           std::erase(name, '-');
                           return name;
                         });

TEST(LockScreen, ShowsCellsDownToTheLowerEdgeOfTheScreen) {
  PlainPhone phone;
  for (int number = 0; number < 200; ++number) phone.present({{"thread", std::to_string(number)}});
  phone.run("lock");
  const auto shown = cells(phone);
  EXPECT_LT(shown.size(), 12U);
  const Json& last = shown.back().at("frame");
  EXPECT_LT(last[1].get<double>(), 812);
  EXPECT_GE(last[1].get<double>() + last[3].get<double>(), 812 - 8);
}

TEST(LockScreen, TapOnACellOpensItsApplicationAndUnlocks) {
  PlainPhone phone;
  phone.present({{"message", "Lunch?"}});
  phone.wait(8);
  phone.run("lock");
  phone.wait(1);
  phone.log();
  phone.run("tap", {{"label", "Lunch?"}});
  const Json events = phone.log();
  ASSERT_EQ(events.size(), 2U);
  EXPECT_EQ(events[0].at("identifier"), "com.apple.UNNotificationDefaultActionIdentifier");
  EXPECT_EQ(events[1], Json({{"event", "launch"}, {"bundle", "com.apple.MobileSMS"}, {"suspended", false}}));
  EXPECT_EQ(phone.run("notifications").at("notifications"), Json::array());
  EXPECT_TRUE(PlainPhone::find(phone.run("tree").at("windows"), "class", "NCNotificationListView").is_null());
}

// Touches the first cell, causes the event, and lifts the finger. Expects that the touch is still recognized as a tap.
template <class Event>
void expectTapDespite(const Event& event) {
  PlainPhone phone;
  phone.present({{"thread", "anna"}, {"message", "Lunch?"}});
  phone.wait(8);
  phone.run("lock");
  phone.wait(1);
  const Json frame = cells(phone).at(0).at("frame");
  phone.run("drag", {{"at", {187, frame[1].get<double>() + 20}}, {"by", {0, 0}}, {"end", "hold"}});
  event(phone);
  phone.log();
  phone.run("drag", {{"by", {0, 0}}});
  const Json events = phone.log();
  ASSERT_EQ(events.size(), 2U);
  EXPECT_EQ(events[0].at("identifier"), "com.apple.UNNotificationDefaultActionIdentifier");
}

TEST(LockScreen, CellKeepsItsTouchWhenTheMinuteChanges) {
  expectTapDespite([](PlainPhone& phone) { phone.wait(61); });
}

TEST(LockScreen, CellKeepsItsTouchWhenAnotherNotificationArrives) {
  expectTapDespite([](PlainPhone& phone) {
    phone.present({{"thread", "ben"}, {"message", "Other"}});
    ASSERT_EQ(cells(phone).size(), 2U);
    EXPECT_TRUE(hasText(cells(phone)[0], "Other"));
  });
}

TEST(LockScreen, RemovesTheListWhenItIsLeft) {
  PlainPhone phone;
  phone.run("lock");
  phone.run("press", {{"type", 101}, {"force", 0}});
  phone.present();
  EXPECT_TRUE(PlainPhone::find(phone.run("tree").at("windows"), "class", "NCNotificationListView").is_null());
  phone.run("lock");
  EXPECT_EQ(cells(phone).size(), 1U);
}

}  // namespace
