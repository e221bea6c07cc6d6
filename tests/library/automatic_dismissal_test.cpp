// Tests of the automatic dismissal of a banner: when it starts, how long its animation takes, and which events prevent
// it.
#include <gtest/gtest.h>

#include "tests/library/controllers.hpp"
#include "tests/library/dismissals.hpp"

namespace {

using test::controllerOf;
using test::dismissalFlags;
using test::eventsOf;
using test::expectRemovedAfter;
using test::Json;
using test::Phone;
using test::postedCommands;
using test::presentPersistent;

struct DurationCase {
  const char* name;
  std::map<std::string, Json> settings;
  const char* message;
  double seconds;
};

std::ostream& operator<<(std::ostream& out, const DurationCase& each) { return out << each.name; }

class DismissalDuration : public testing::TestWithParam<DurationCase> {};

TEST_P(DismissalDuration, IncreasesWithTheNumberOfVisibleLines) {
  Phone phone({.options = {}, .settings = GetParam().settings});
  const int controller = phone.present({{"title", "Anna"}, {"message", GetParam().message}});
  phone.wait(1);
  test::postCommand({{"command", "dismiss"}});
  expectRemovedAfter(phone, controller, GetParam().seconds);
}

INSTANTIATE_TEST_SUITE_P(Banners, DismissalDuration,
                         testing::Values(DurationCase{"NoBody", {}, "", 0.72},
                                         DurationCase{"OneLine", {}, "Hello", 0.72},
                                         DurationCase{"TwoLines", {}, "Hello\nAnna", 0.74},
                                         DurationCase{"AtMostTheMaxLineCount", {}, "1\n2\n3\n4\n5", 0.74},
                                         DurationCase{"FiveLines", {{"maxLineCount", 9}}, "1\n2\n3\n4\n5", 0.8},
                                         DurationCase{"Tiny", {{"tinyBanner", true}}, "Hello\nAnna", 0.72}),
                         [](const auto& each) { return each.param.name; });

// The duration depends on the current setting, although the banner was laid out before the setting changed.
TEST(DismissalDuration, CountsOnlyTheHeaderAfterTheSettingMakesBannersTiny) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello\nAnna"}});
  phone.wait(1);
  phone.set("tinyBanner", true);
  test::postCommand({{"command", "dismiss"}});
  expectRemovedAfter(phone, controller, 0.72);
}

TEST(Dismissal, TimerDoesNotDismissAReplacedBanner) {
  Phone phone;
  const int replaced = phone.present({{"title", "Anna"}});
  phone.wait(4.8);
  phone.present({{"title", "Bert"}});
  phone.wait(0.3);
  EXPECT_EQ(dismissalFlags(phone, replaced), Json({{"wasExternallyDismissed", true}}));
  phone.wait(0.3);
  EXPECT_TRUE(phone.state(replaced).at("isDismissing"));
}

TEST(Dismissal, UnforcedRequestDuringTheAnimationChangesNothing) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}});
  phone.wait(5.1);
  ASSERT_TRUE(phone.state(controller).at("isDismissing"));
  controllerOf(controller)->attemptDismissNotification(nullptr, false);
  expectRemovedAfter(phone, controller, 0.62);
}

TEST(Dismissal, PassesThroughEveryStateOnceIfTheTimerStartsIt) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  phone.wait(4.999);
  EXPECT_EQ(dismissalFlags(phone, controller), Json::object());
  phone.log();
  phone.wait(0.002);
  EXPECT_EQ(dismissalFlags(phone, controller),
            Json({{"dismissCalled", true}, {"autoDimissTriggered", true}, {"isDismissing", true}}));
  EXPECT_EQ(phone.log(), Json::array());
  phone.wait(0.72);
  EXPECT_TRUE(phone.state(controller).at("hasDismissed"));
  EXPECT_TRUE(phone.state(controller).at("dismissed"));
  const Json events = phone.log();
  EXPECT_EQ(postedCommands(events), std::vector<std::string>{"dismissnoani"});
  EXPECT_EQ(eventsOf(events, "dismiss"),
            std::vector<Json>({{{"event", "dismiss"}, {"controller", controller}, {"transition", 0}}}));
}

TEST(Dismissal, TimerDoesNotDismissAPersistentBanner) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(600);
  EXPECT_TRUE(phone.state(controller).at("brim"));
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
  EXPECT_TRUE(eventsOf(phone.log(), "dismiss").empty());
}

TEST(Dismissal, TimerDoesNotDismissAnExpandedBanner) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  phone.wait(1);
  phone.run({{"do", "drag"}, {"by", {0, 200}}});
  phone.wait(600);
  EXPECT_TRUE(phone.state(controller).at("expanded"));
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

TEST(Dismissal, TimerDuringADismissalDoesNothing) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  phone.wait(4.9);
  test::postCommand({{"command", "dismiss"}});
  expectRemovedAfter(phone, controller, 0.72);
  phone.wait(10);
  EXPECT_EQ(eventsOf(phone.log(), "dismiss").size(), 1U);
}

TEST(Dismissal, TimerDoesNothingAfterAnEarlierRequest) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  phone.wait(1);
  controllerOf(controller)->attemptDismissNotification(nullptr, false);
  EXPECT_EQ(dismissalFlags(phone, controller), Json({{"dismissCalled", true}}));
  phone.wait(20);
  EXPECT_EQ(dismissalFlags(phone, controller), Json({{"dismissCalled", true}}));
  EXPECT_TRUE(phone.state(controller).at("brim"));
}

TEST(Dismissal, UnforcedRequestSucceedsAfterTheTimerFired) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}});
  phone.wait(1);
  controllerOf(controller)->setAutoDimissTriggered(true);
  controllerOf(controller)->attemptDismissNotification(nullptr, false);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Dismissal, AutomaticDismissalFollowsTheOptionsOfTheRequest) {
  Phone phone;
  EXPECT_FALSE(controllerOf(presentPersistent(phone))->shouldAutoDismiss());
  EXPECT_TRUE(controllerOf(phone.present({{"dismissAutomatically", true}}))->shouldAutoDismiss());
  EXPECT_TRUE(controllerOf(phone.present({{"dismissAutomatically", nullptr}}))->shouldAutoDismiss());
}

}  // namespace
