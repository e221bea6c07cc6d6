#include <gtest/gtest.h>

#include "tests/library/controllers.hpp"
#include "tests/library/dismissals.hpp"

namespace {

using test::containerOf;
using test::controllerOf;
using test::dismissalFlags;
using test::eventsOf;
using test::expectRemovedAfter;
using test::Json;
using test::oneMillisecond;
using test::Phone;
using test::postedCommands;
using test::presentPersistent;

// The transition with which the library asks the platform to dismiss a banner.
constexpr NSInteger libraryTransition = 30;

const char* encodingOf(const char* selector) {
  Method method = class_getInstanceMethod(BannerController::classObject(), sel_registerName(selector));
  return method_getTypeEncoding(method);
}

TEST(DismissalFlag, IsABoolWithGetterAndSetter) {
  const Phone phone;
  EXPECT_STREQ(encodingOf("hasDismissed"), "B@:");
  EXPECT_STREQ(encodingOf("setHasDismissed:"), "v@:B");
  const auto controller = objc::make<BannerController>();
  EXPECT_FALSE(controller->hasDismissed());
  controller->setHasDismissed(true);
  EXPECT_TRUE(controller->hasDismissed());
  controller->setHasDismissed(false);
  EXPECT_FALSE(controller->hasDismissed());
}

TEST(Dismissal, ForcedRequestDismissesAPersistentBanner) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(20);
  phone.run({{"do", "tap"}, {"controller", controller}});
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_TRUE(phone.state(controller).at("dismissNotification"));
  expectRemovedAfter(phone, controller, 0.72);
  EXPECT_EQ(eventsOf(phone.log(), "dismiss").size(), 1U);
}

TEST(Dismissal, MovesTheBannerByAThousandPoints) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  test::postCommand({{"command", "dismiss"}});
  phone.wait(0);
  EXPECT_DOUBLE_EQ(phone.state(controller).at("offset"), -70 - 1000);
}

// The first request has already set the final position, so the second request has no change to animate.
TEST(Dismissal, SecondForcedRequestEndsTheAnimationImmediately) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  phone.run({{"do", "tap"}, {"controller", controller}});
  phone.wait(0.1);
  test::postCommand({{"command", "dismiss"}});
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  phone.wait(oneMillisecond);
  EXPECT_FALSE(phone.state(controller).at("brim"));
  phone.wait(5);
  EXPECT_EQ(eventsOf(phone.log(), "dismiss").size(), 1U);
}

TEST(Dismissal, RequestAfterTheDismissalChangesNothing) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  const auto shortLook = controllerOf(controller);
  shortLook->forceDismissNotification(nullptr);
  phone.wait(0.8);
  ASSERT_TRUE(phone.state(controller).at("hasDismissed"));
  phone.log();
  shortLook->forceDismissNotification(nullptr);
  phone.wait(5);
  EXPECT_TRUE(shortLook->hasDismissed());
  EXPECT_EQ(phone.log(), Json::array());
}

TEST(Dismissal, TapDismissesAndThePlatformOpensTheApplication) {
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

TEST(Dismissal, IsIgnoredIfThePlatformRequestsIt) {
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

TEST(Dismissal, LibraryTransitionIsForwardedAsZeroWithoutTheCompletion) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}});
  phone.wait(1);
  bool ran = false;
  const auto completion = objc::block([&ran](bool) { ran = true; });
  controllerOf(controller)->dismissViewController(libraryTransition, completion);
  phone.wait(1);
  EXPECT_TRUE(phone.state(controller).at("hasDismissed"));
  const auto seen = eventsOf(phone.log(), "dismiss");
  ASSERT_EQ(seen.size(), 1U);
  EXPECT_EQ(seen[0].at("transition"), 0);
  EXPECT_FALSE(ran);
}

TEST(Dismissal, LibraryTransitionRequestedByThePlatformRemovesTheBanner) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  phone.run({{"do", "dismiss"}, {"controller", controller}, {"transition", libraryTransition}});
  phone.wait(0);
  EXPECT_TRUE(phone.state(controller).at("hasDismissed"));
  EXPECT_FALSE(phone.state(controller).at("brim"));
  EXPECT_TRUE(phone.state(phone.present()).at("brim"));
}

TEST(Dismissal, PlatformsDismissalWithoutABannerDoesNotSetDismissNotification) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  containerOf(controller)->removeFromSuperview();
  controllerOf(controller)->setBrimView(nullptr);
  BrimContainer::setDismissNotification(false);
  phone.run({{"do", "dismiss"}, {"controller", controller}, {"transition", libraryTransition}});
  phone.wait(0);
  EXPECT_TRUE(phone.state(controller).at("hasDismissed"));
  EXPECT_FALSE(BrimContainer::DismissNotification());
}

TEST(Dismissal, PlatformsDismissalOfAReplacedBannerDoesNotDismissTheNewerOne) {
  Phone phone;
  const int older = phone.present();
  phone.wait(0.1);
  const int newer = presentPersistent(phone);
  phone.wait(0.1);
  phone.run({{"do", "dismiss"}, {"controller", older}, {"transition", libraryTransition}});
  EXPECT_FALSE(phone.state(newer).at("dismissNotification"));
  phone.wait(10);
  EXPECT_TRUE(phone.state(newer).at("brim"));
}

TEST(Dismissal, SecondTapDuringTheAnimationDoesNothing) {
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

TEST(Dismissal, ReplacedBannerIsDismissedWithoutTheNewerOne) {
  Phone phone;
  const int older = phone.present({{"title", "One"}});
  phone.wait(1);
  const int newer = phone.present({{"title", "Two"}});
  phone.wait(3);
  EXPECT_FALSE(phone.state(older).at("brim"));
  EXPECT_TRUE(phone.state(newer).at("brim"));
  EXPECT_EQ(dismissalFlags(phone, newer), Json::object());
  const auto posted = postedCommands(phone.log());
  EXPECT_EQ(std::ranges::count(posted, "dismissnoani"), 0);
}

TEST(Dismissal, ClosesTheKeyboard) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  phone.run({{"do", "drag"}, {"by", {0, 200}}});
  phone.wait(1);
  ASSERT_TRUE(containerOf(controller)->reply()->isFirstResponder());
  test::postCommand({{"command", "dismiss"}});
  EXPECT_FALSE(containerOf(controller)->reply()->isFirstResponder());
}

TEST(Dismissal, InterruptedAnimationDoesNotRemoveTheBanner) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  test::postCommand({{"command", "dismiss"}});
  phone.wait(0.3);
  const auto container = objc::retain(containerOf(controller));
  const auto superview = objc::retain(container->superview());
  container->removeFromSuperview();
  phone.wait(2);
  EXPECT_EQ(containerOf(controller), container.get());
  EXPECT_TRUE(eventsOf(phone.log(), "dismiss").empty());
}

TEST(Dismissal, InterruptedAnimationDoesNotRemoveAReplacedBanner) {
  Phone phone;
  const int replaced = phone.present({{"title", "Anna"}});
  phone.wait(1);
  phone.present({{"title", "Bert"}});
  phone.wait(0.7);
  const auto shortLook = controllerOf(replaced);
  ASSERT_TRUE(shortLook->wasExternallyDismissed() && shortLook->isDismissing());
  const auto container = objc::retain(containerOf(replaced));
  container->removeFromSuperview();
  phone.wait(0.3);
  EXPECT_EQ(shortLook->brimView(), container.get());
}

TEST(Dismissal, ControllerWithoutABannerIgnoresAForcedRequest) {
  Phone phone;
  presentPersistent(phone);
  const int empty = phone.present({{"title", "Covered"}});
  ASSERT_FALSE(phone.state(empty).at("brim"));
  controllerOf(empty)->forceDismissNotification(nullptr);
  phone.wait(2);
  EXPECT_FALSE(phone.state(empty).at("isDismissing"));
  EXPECT_FALSE(phone.state(empty).at("dismissed"));
}

TEST(Dismissal, PreDismissPostsTheCommandOnlyIfEveryConditionHolds) {
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  phone.log();
  const auto shortLook = controllerOf(controller);
  shortLook->preDismiss();
  shortLook->setAutoDimissTriggered(true);
  shortLook->preDismiss();
  EXPECT_TRUE(postedCommands(phone.log()).empty());
  BrimContainer::setDismissNotification(true);
  shortLook->setWasExternallyDismissed(true);
  shortLook->preDismiss();
  shortLook->setWasExternallyDismissed(false);
  shortLook->setHasDismissed(true);
  shortLook->preDismiss();
  EXPECT_TRUE(postedCommands(phone.log()).empty());
  shortLook->setHasDismissed(false);
  shortLook->preDismiss();
  EXPECT_EQ(postedCommands(phone.log()), std::vector<std::string>{"dismissnoani"});
}

}  // namespace
