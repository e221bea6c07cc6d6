#include <gtest/gtest.h>

#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::containerOf;
using test::controllerOf;
using test::Json;
using test::Phone;

constexpr double instant = 0.001;

// A notification that no timer takes away.
int presentPersistent(Phone& phone, const Json& fields = {{"title", "Anna"}, {"message", "Hello"}}) {
  Json all = {{"dismissAutomatically", false}};
  all.update(fields);
  return phone.present(all);
}

std::vector<Json> dismissals(const Json& events) {
  return test::nodes(events, [](const Json& event) { return event.at("event") == "dismiss"; });
}

std::vector<std::string> commands(const Json& events) {
  std::vector<std::string> found;
  for (const Json& event : events)
    if (event.at("event") == "post" && event.at("name") == "BrimNotification")
      found.push_back(event.at("userInfo").at("command"));
  return found;
}

Json flags(Phone& phone, int controller) {
  Json found = Json::object();
  const Json state = phone.state(controller);
  for (const char* flag :
       {"dismissCalled", "autoDimissTriggered", "isDismissing", "hasDismissed", "wasExternallyDismissed"})
    if (state.at(flag).get<bool>()) found[flag] = true;
  return found;
}

void expectGoneAfter(Phone& phone, int controller, double seconds) {
  phone.wait(seconds - instant);
  EXPECT_TRUE(phone.state(controller).at("brim")) << "too early";
  phone.wait(2 * instant);
  EXPECT_FALSE(phone.state(controller).at("brim")) << "too late";
}

struct DurationCase {
  const char* name;
  std::map<std::string, Json> settings;
  const char* message;
  double seconds;
};

std::ostream& operator<<(std::ostream& out, const DurationCase& each) { return out << each.name; }

class DismissalDuration : public testing::TestWithParam<DurationCase> {};

TEST_P(DismissalDuration, GrowsWithTheLinesThatAreShown) {
  Phone phone({.options = {}, .settings = GetParam().settings});
  const int controller = phone.present({{"title", "Anna"}, {"message", GetParam().message}});
  phone.wait(1);
  test::command({{"command", "dismiss"}});
  expectGoneAfter(phone, controller, GetParam().seconds);
}

INSTANTIATE_TEST_SUITE_P(Banners, DismissalDuration,
                         testing::Values(DurationCase{"NoBody", {}, "", 0.72},
                                         DurationCase{"OneLine", {}, "Hello", 0.72},
                                         DurationCase{"TwoLines", {}, "Hello\nAnna", 0.74},
                                         DurationCase{"NoMoreThanAllowed", {}, "1\n2\n3\n4\n5", 0.74},
                                         DurationCase{"FiveLines", {{"maxLineCount", 9}}, "1\n2\n3\n4\n5", 0.8},
                                         DurationCase{"Tiny", {{"tinyBanner", true}}, "Hello\nAnna", 0.72}),
                         [](const auto& each) { return each.param.name; });

TEST(Dismissal, ByTheTimerGoesThroughEveryStageOnce) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  phone.wait(4.999);
  EXPECT_EQ(flags(phone, controller), Json::object());
  phone.log();
  phone.wait(0.002);
  EXPECT_EQ(flags(phone, controller),
            Json({{"dismissCalled", true}, {"autoDimissTriggered", true}, {"isDismissing", true}}));
  EXPECT_EQ(phone.log(), Json::array());
  phone.wait(0.72);
  EXPECT_TRUE(phone.state(controller).at("hasDismissed"));
  EXPECT_TRUE(phone.state(controller).at("dismissed"));
  const Json events = phone.log();
  EXPECT_EQ(commands(events), std::vector<std::string>{"dismissnoani"});
  EXPECT_EQ(dismissals(events),
            std::vector<Json>({{{"event", "dismiss"}, {"controller", controller}, {"transition", 0}}}));
}

TEST(Dismissal, TimerLeavesPersistentBannerAlone) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(600);
  EXPECT_TRUE(phone.state(controller).at("brim"));
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
  EXPECT_TRUE(dismissals(phone.log()).empty());
}

TEST(Dismissal, TimerLeavesABannerAloneThatWasPulledOpen) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  phone.wait(1);
  phone.run({{"do", "drag"}, {"by", {0, 200}}});
  phone.wait(600);
  EXPECT_TRUE(phone.state(controller).at("expanded"));
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

TEST(Dismissal, ForcedRequestTakesAPersistentBannerAway) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(20);
  phone.run({{"do", "tap"}, {"controller", controller}});
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_TRUE(phone.state(controller).at("dismissNotification"));
  expectGoneAfter(phone, controller, 0.72);
  EXPECT_EQ(dismissals(phone.log()).size(), 1U);
}

TEST(Dismissal, TimerThatFiresDuringOneDoesNothing) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  phone.wait(4.9);
  test::command({{"command", "dismiss"}});
  expectGoneAfter(phone, controller, 0.72);
  phone.wait(10);
  EXPECT_EQ(dismissals(phone.log()).size(), 1U);
}

TEST(Dismissal, TimerDoesNothingOnceOneWasAskedFor) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  phone.wait(1);
  controllerOf(controller)->attemptDismissNotification(nullptr, false);
  EXPECT_EQ(flags(phone, controller), Json({{"dismissCalled", true}}));
  phone.wait(20);
  EXPECT_EQ(flags(phone, controller), Json({{"dismissCalled", true}}));
  EXPECT_TRUE(phone.state(controller).at("brim"));
}

TEST(Dismissal, UnforcedRequestNeedsTheTimersLeave) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}});
  phone.wait(1);
  controllerOf(controller)->setAutoDimissTriggered(true);
  controllerOf(controller)->attemptDismissNotification(nullptr, false);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

// The banner is where it should be already, so the second animation has nothing to do.
TEST(Dismissal, SecondForcedRequestStartsAgainAndEndsAtOnce) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  phone.run({{"do", "tap"}, {"controller", controller}});
  phone.wait(0.1);
  test::command({{"command", "dismiss"}});
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  phone.wait(instant);
  EXPECT_FALSE(phone.state(controller).at("brim"));
  phone.wait(5);
  EXPECT_EQ(dismissals(phone.log()).size(), 1U);
}

TEST(Dismissal, RequestAfterTheEndChangesNothing) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  const auto held = controllerOf(controller);
  held->forceDismissNotification(nullptr);
  phone.wait(0.8);
  ASSERT_TRUE(phone.state(controller).at("hasDismissed"));
  phone.log();
  held->forceDismissNotification(nullptr);
  phone.wait(5);
  EXPECT_TRUE(held->hasDismissed());
  EXPECT_EQ(phone.log(), Json::array());
}

TEST(Dismissal, TapComesBeforeThePlatformsOwnHandling) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  phone.log();
  phone.run({{"do", "tap"}, {"controller", controller}});
  const Json events = phone.log();
  ASSERT_EQ(events.size(), 2U) << events;
  EXPECT_EQ(events[0].at("event"), "action");
  EXPECT_EQ(events[0].at("identifier"), "com.apple.UNNotificationDefaultActionIdentifier");
  EXPECT_EQ(events[1], Json({{"event", "launch"}, {"bundle", "com.apple.MobileSMS"}, {"suspended", false}}));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_FALSE(phone.state(controller).at("dismissed"));
}

TEST(Dismissal, PlatformsOwnIsSwallowed) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}});
  phone.wait(1);
  bool ran = false;
  const auto completion = objc::block([&ran](bool) { ran = true; });
  for (const NSInteger transition : {0, 1, 29, 31, -30})
    controllerOf(controller)->dismissViewController(transition, completion);
  phone.wait(1);
  EXPECT_TRUE(phone.state(controller).at("brim"));
  EXPECT_TRUE(dismissals(phone.log()).empty());
  EXPECT_FALSE(ran);
}

TEST(Dismissal, OwnTransitionReachesThePlatformAsZeroWithoutTheCallersCompletion) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}});
  phone.wait(1);
  bool ran = false;
  const auto completion = objc::block([&ran](bool) { ran = true; });
  controllerOf(controller)->dismissViewController(30, completion);
  phone.wait(1);
  EXPECT_TRUE(phone.state(controller).at("hasDismissed"));
  const auto seen = dismissals(phone.log());
  ASSERT_EQ(seen.size(), 1U);
  EXPECT_EQ(seen[0].at("transition"), 0);
  EXPECT_FALSE(ran);
}

TEST(Dismissal, ThatThePlatformAsksForWithTheOwnTransitionLeavesNothingBehind) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  phone.run({{"do", "dismiss"}, {"controller", controller}, {"transition", 30}});
  phone.wait(0);
  EXPECT_TRUE(phone.state(controller).at("hasDismissed"));
  EXPECT_FALSE(phone.state(controller).at("brim"));
  EXPECT_TRUE(phone.state(phone.present()).at("brim"));
}

TEST(Dismissal, ReplacedBannerGoesWithoutTakingTheNewerOneWithIt) {
  Phone phone;
  const int older = phone.present({{"title", "One"}});
  phone.wait(1);
  const int newer = phone.present({{"title", "Two"}});
  phone.wait(3);
  EXPECT_FALSE(phone.state(older).at("brim"));
  EXPECT_TRUE(phone.state(newer).at("brim"));
  EXPECT_EQ(flags(phone, newer), Json::object());
  const auto posted = commands(phone.log());
  EXPECT_EQ(std::ranges::count(posted, "dismissnoani"), 0);
}

TEST(Dismissal, ClosesTheKeyboard) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  phone.run({{"do", "drag"}, {"by", {0, 200}}});
  phone.wait(1);
  ASSERT_TRUE(containerOf(controller)->reply()->isFirstResponder());
  test::command({{"command", "dismiss"}});
  EXPECT_FALSE(containerOf(controller)->reply()->isFirstResponder());
}

TEST(Dismissal, InterruptedAnimationLeavesTheBannerInPlace) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  test::command({{"command", "dismiss"}});
  phone.wait(0.3);
  const auto container = objc::retain(containerOf(controller));
  const auto superview = objc::retain(container->superview());
  container->removeFromSuperview();
  phone.wait(2);
  EXPECT_EQ(containerOf(controller), container.get());
  EXPECT_TRUE(dismissals(phone.log()).empty());
}

TEST(Dismissal, ControllerWithoutABannerIsLeftToThePlatform) {
  Phone phone;
  presentPersistent(phone);
  const int empty = phone.present({{"title", "Covered"}});
  ASSERT_FALSE(phone.state(empty).at("brim"));
  controllerOf(empty)->forceDismissNotification(nullptr);
  phone.wait(2);
  EXPECT_FALSE(phone.state(empty).at("isDismissing"));
  EXPECT_FALSE(phone.state(empty).at("dismissed"));
}

TEST(Dismissal, AnnouncesItsEndOnlyWhenItMay) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  phone.log();
  const auto held = controllerOf(controller);
  held->preDismiss();
  held->setAutoDimissTriggered(true);
  held->preDismiss();
  EXPECT_TRUE(commands(phone.log()).empty());
  BrimContainer::setDismissNotification(true);
  held->setWasExternallyDismissed(true);
  held->preDismiss();
  held->setWasExternallyDismissed(false);
  held->setHasDismissed(true);
  held->preDismiss();
  EXPECT_TRUE(commands(phone.log()).empty());
  held->setHasDismissed(false);
  held->preDismiss();
  EXPECT_EQ(commands(phone.log()), std::vector<std::string>{"dismissnoani"});
}

TEST(Dismissal, RequestsDecideWhetherTheyMayGo) {
  Phone phone;
  EXPECT_FALSE(controllerOf(presentPersistent(phone))->shouldAutoDismiss());
  EXPECT_TRUE(controllerOf(phone.present({{"dismissAutomatically", true}}))->shouldAutoDismiss());
  EXPECT_TRUE(controllerOf(phone.present({{"dismissAutomatically", nullptr}}))->shouldAutoDismiss());
}

}  // namespace
