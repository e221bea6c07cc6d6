#include <gtest/gtest.h>

#include "tests/library/controllers.hpp"
#include "tests/library/dismissals.hpp"

namespace {

using test::commands;
using test::containerOf;
using test::controllerOf;
using test::eventsOf;
using test::expectGoneAfter;
using test::flags;
using test::instant;
using test::Json;
using test::Phone;
using test::presentPersistent;

TEST(Dismissal, ForcedRequestTakesAPersistentBannerAway) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(20);
  phone.run({{"do", "tap"}, {"controller", controller}});
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_TRUE(phone.state(controller).at("dismissNotification"));
  expectGoneAfter(phone, controller, 0.72);
  EXPECT_EQ(eventsOf(phone.log(), "dismiss").size(), 1U);
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
  EXPECT_EQ(eventsOf(phone.log(), "dismiss").size(), 1U);
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
  EXPECT_TRUE(eventsOf(phone.log(), "dismiss").empty());
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
  const auto seen = eventsOf(phone.log(), "dismiss");
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

TEST(Dismissal, ThatThePlatformAsksForAReplacedBannerLetsTheNewerOneStay) {
  Phone phone;
  const int older = phone.present();
  phone.wait(0.1);
  const int newer = presentPersistent(phone);
  phone.wait(0.1);
  phone.run({{"do", "dismiss"}, {"controller", older}, {"transition", 30}});
  EXPECT_FALSE(phone.state(newer).at("dismissNotification"));
  phone.wait(10);
  EXPECT_TRUE(phone.state(newer).at("brim"));
}

TEST(Dismissal, SecondTapOnABannerThatLeavesFindsNothing) {
  Phone phone;
  const int controller = phone.present();
  phone.wait(1);
  phone.run({{"do", "tap"}, {"controller", controller}});
  phone.log();
  phone.run({{"do", "tap"}, {"controller", controller}});
  EXPECT_TRUE(eventsOf(phone.log(), "action").empty());
  phone.wait(1);
  EXPECT_TRUE(phone.state(controller).at("dismissed"));
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
  EXPECT_TRUE(eventsOf(phone.log(), "dismiss").empty());
}

TEST(Dismissal, InterruptedAnimationLeavesAReplacedBannerToo) {
  Phone phone;
  const int replaced = phone.present({{"title", "Anna"}});
  phone.wait(1);
  phone.present({{"title", "Bert"}});
  phone.wait(0.7);
  const auto held = controllerOf(replaced);
  ASSERT_TRUE(held->wasExternallyDismissed() && held->isDismissing());
  const auto container = objc::retain(containerOf(replaced));
  container->removeFromSuperview();
  phone.wait(0.3);
  EXPECT_EQ(held->brimView(), container.get());
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

}  // namespace
