#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <regex>

#include "library/utilities/parent_view_controller.hpp"
#include "platform/nc_notification_view.hpp"
#include "platform/ui_gesture_recognizer.hpp"
#include "platform/ui_window.hpp"
#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "tests/library/banner_layout.hpp"
#include "tests/library/controllers.hpp"

namespace {

using test::Json;
using test::Phone;
using test::phoneWith;

std::vector<Json> postsOfCommand(const Json& events, const std::string& command) {
  std::vector<Json> found;
  for (const Json& event : test::eventsOf(events, "post")) {
    if (event.at("name") == "BrimNotification" && event.at("userInfo").at("command") == command) found.push_back(event);
  }
  return found;
}

TEST(Attachment, DragCommandIgnoresANewerControllerWithoutABanner) {
  Phone phone = phoneWith({});
  const int persistent = phone.present({{"dismissAutomatically", false}, {"message", "one\ntwo\nthree"}});
  phone.wait(6);
  phone.present();
  phone.run({{"do", "drag"}, {"by", {0, -10}}, {"end", "hold"}});
  EXPECT_EQ(phone.state(persistent).at("offset"), -80);
}

TEST(Attachment, BannerReplacesThePlatformsContent) {
  Phone phone = phoneWith({});
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  EXPECT_FALSE(phone.banner(controller).is_null());
  EXPECT_TRUE(test::firstNode(phone.windows(controller), "class", "NCNotificationShortLookView").is_null());
  EXPECT_TRUE(phone.state(controller).at("brim"));
}

TEST(Attachment, GivesTheControllerAnIdentifierOfEightLowercaseLetters) {
  Phone phone = phoneWith({});
  const int controller = phone.present();
  const std::string identifier = phone.state(controller).at("identifier");
  EXPECT_TRUE(std::regex_match(identifier, std::regex("[a-z]{8}"))) << identifier;
}

TEST(Attachment, IsPostedOnceAsynchronously) {
  Phone phone = phoneWith({});
  phone.log();
  const int controller = phone.present();
  phone.wait(0.1);
  const auto posts = postsOfCommand(phone.log(), "isExternallyDismissed");
  ASSERT_EQ(posts.size(), 1u);
  EXPECT_EQ(posts.front().at("userInfo").at("brimIdentifier"), phone.state(controller).at("identifier"));
}

// A script command returns only after the run-loop iteration, so this test presents the banner directly.
TEST(Attachment, IsPostedInALaterRunLoopIteration) {
  Phone phone = phoneWith({});
  const auto request = objc::retain(test::controllerOf(phone.present())->notificationRequest());
  phone.wait(20);
  phone.log();
  springboard::presentBanner(springboard::makeShortLookController(request));
  EXPECT_TRUE(postsOfCommand(phone.log(), "isExternallyDismissed").empty());
  EXPECT_EQ(postsOfCommand(phone.log(), "isExternallyDismissed").size(), 1u);
}

TEST(Attachment, SecondBannerDismissesTheFirstHalfASecondLater) {
  Phone phone = phoneWith({});
  const int first = phone.present({{"title", "One"}});
  phone.wait(1);
  const int second = phone.present({{"title", "Two"}});
  phone.wait(0.45);
  EXPECT_FALSE(phone.state(first).at("isDismissing"));
  phone.wait(0.1);
  EXPECT_TRUE(phone.state(first).at("isDismissing"));
  phone.wait(1);
  EXPECT_FALSE(phone.state(first).at("brim"));
  EXPECT_TRUE(phone.state(second).at("brim"));
}

TEST(Attachment, PersistentBannerIsNotReplaced) {
  Phone phone = phoneWith({});
  const int persistent = phone.present({{"title", "One"}, {"dismissAutomatically", false}});
  EXPECT_FALSE(phone.state(persistent).at("dismissNotification"));
  const int second = phone.present({{"title", "Two"}});
  EXPECT_FALSE(phone.state(second).at("brim"));
  EXPECT_TRUE(test::firstNode(phone.windows(second), "class", "NCNotificationShortLookView").is_null());
  EXPECT_TRUE(phone.state(persistent).at("brim"));
}

// Removes the view of the controller from its superview and adds it again.
void reattachView(int number) {
  const auto controller = test::controllerOf(number);
  const auto view = objc::retain(controller->view());
  const auto superview = objc::retain(view->superview());
  view->removeFromSuperview();
  superview->addSubview(view);
}

TEST(Attachment, RetryKeepsTheIdentifierOfTheController) {
  Phone phone = phoneWith({});
  phone.present({{"title", "One"}, {"dismissAutomatically", false}});
  const int waiting = phone.present({{"title", "Two"}});
  phone.wait(0.1);
  phone.log();
  const Json identifier = phone.state(waiting).at("identifier");
  reattachView(waiting);
  phone.wait(0.1);
  EXPECT_EQ(phone.state(waiting).at("identifier"), identifier);
  EXPECT_TRUE(postsOfCommand(phone.log(), "isExternallyDismissed").empty());
}

TEST(Attachment, ViewThatAlreadyHasItsBannerIsNotAttachedAgain) {
  Phone phone = phoneWith({});
  const int controller = phone.present({{"title", "One"}});
  phone.wait(1);
  const auto banner = objc::retain(test::containerOf(controller));
  phone.log();
  reattachView(controller);
  EXPECT_EQ(test::containerOf(controller), banner.get());
  EXPECT_EQ(banner->gestureRecognizers()->count(), 2u);
  const auto banners =
      test::nodes(phone.windows(controller), [](const Json& node) { return node.at("class") == "BrimContainer"; });
  EXPECT_EQ(banners.size(), 1u);
  EXPECT_TRUE(phone.log().empty());
}

void setFlags(BannerController* controller) {
  controller->setHasDismissed(true);
  controller->setAutoDimissTriggered(true);
  controller->setIsDismissing(true);
  controller->setWasExternallyDismissed(true);
  controller->setDismissCalled(true);
}

std::array<bool, 5> flagsOf(const BannerController* controller) {
  return {controller->hasDismissed(), controller->autoDimissTriggered(), controller->isDismissing(),
          controller->wasExternallyDismissed(), controller->dismissCalled()};
}

TEST(Attachment, ClearsTheDismissalFlags) {
  Phone phone = phoneWith({});
  const int persistent = phone.present({{"title", "One"}, {"dismissAutomatically", false}});
  const int waiting = phone.present({{"title", "Two"}});
  const auto controller = test::controllerOf(waiting);
  setFlags(controller);
  reattachView(waiting);
  EXPECT_EQ(flagsOf(controller), (std::array<bool, 5>{true, true, true, true, true})) << "no banner was attached";
  phone.run({{"do", "dismiss"}, {"controller", persistent}});
  BrimContainer::setDismissNotification(true);
  reattachView(waiting);
  EXPECT_EQ(flagsOf(controller), (std::array<bool, 5>{}));
}

TEST(Attachment, LoadingTheViewClearsTheDismissalFlags) {
  Phone phone = phoneWith({});
  const auto made = springboard::makeShortLookController(test::controllerOf(phone.present())->notificationRequest());
  auto* controller = reinterpret_cast<BannerController*>(made.get());
  setFlags(controller);
  controller->view();
  EXPECT_EQ(flagsOf(controller), (std::array<bool, 5>{}));
}

TEST(Attachment, ViewOfAnotherResponderHasNoBanner) {
  Phone phone = phoneWith({});
  phone.present({{"title", "One"}});
  const auto view = UIView::withFrame<NCNotificationViewControllerView>({{0, 0}, {100, 100}});
  UIWindow* window = test::containerOf(1)->window();
  window->addSubview(view);
  EXPECT_EQ(parentViewController(view), (objc::send<UIResponder*, "nextResponder">(window)));
  EXPECT_EQ(view->subviews()->count(), 0u);
}

TEST(Attachment, RemovesThePlatformsGestureRecognizers) {
  Phone phone = phoneWith({});
  const int persistent = phone.present({{"title", "One"}, {"dismissAutomatically", false}});
  const int waiting = phone.present({{"title", "Two"}});
  auto* view = reinterpret_cast<NCNotificationViewControllerView*>(test::controllerOf(waiting)->view());
  const auto content = objc::retain(view->contentView());
  const auto target = objc::make<NSObject>();
  const SEL action = objc::selector<"description">();
  for (UIView* each : {static_cast<UIView*>(view), static_cast<UIView*>(content.get())})
    for (int count = 0; count < 2; ++count)
      each->addGestureRecognizer(UITapGestureRecognizer::withTarget(target, action));

  phone.run({{"do", "dismiss"}, {"controller", persistent}});
  BrimContainer::setDismissNotification(true);
  reattachView(waiting);
  ASSERT_TRUE(phone.state(waiting).at("brim"));
  EXPECT_EQ(view->gestureRecognizers()->count(), 0u);
  EXPECT_EQ(content->gestureRecognizers()->count(), 0u);
  EXPECT_EQ(test::containerOf(waiting)->gestureRecognizers()->count(), 2u);
}

TEST(Attachment, RequestWithoutOptionsIsDismissedAutomatically) {
  Phone phone = phoneWith({});
  const int controller = phone.present({{"dismissAutomatically", nullptr}});
  EXPECT_TRUE(phone.state(controller).at("dismissNotification"));
}

TEST(Attachment, AlarmHasSnoozeAndStopButtons) {
  Phone phone = phoneWith({});
  const Json snooze = {{"key", "snooze"}, {"identifier", "MTAlarmSnoozeAction"}, {"title", "Snooze"}};
  const int controller = phone.present(
      {{"section", "com.apple.mobiletimer"}, {"title", "Alarm"}, {"close", true}, {"actions", Json::array({snooze})}});
  EXPECT_FALSE(phone.view(controller, "_snoozeButton").is_null());
  EXPECT_FALSE(phone.view(controller, "_stopAlarmButton").is_null());
  EXPECT_TRUE(phone.view(controller, "_closeButton").is_null());
  EXPECT_TRUE(phone.view(controller, "reply").is_null());
}

TEST(Attachment, AlarmCannotBeRepliedTo) {
  Phone phone = phoneWith({});
  const Json reply = {{"key", "reply"}, {"identifier", "reply"}, {"title", "Reply"}, {"textInput", true}};
  const int alarm = phone.present({{"section", "com.apple.mobiletimer"}, {"title", "Alarm"}, {"actions", {reply}}});
  EXPECT_TRUE(test::containerOf(alarm)->isAlarm());
  EXPECT_FALSE(test::containerOf(alarm)->canReply());
}

TEST(Attachment, BannerWithoutTitleOrMessageIsTinyIfTheSettingIsOn) {
  Phone phone = phoneWith({{"tinyBannerNoText", true}});
  const auto isTiny = [&phone](const Json& notification) {
    return objc::send<bool, "tinyBanner">(test::containerOf(phone.present(notification)));
  };
  EXPECT_TRUE(isTiny({{"title", "T"}}));
  EXPECT_TRUE(isTiny({{"message", "M"}}));
  EXPECT_TRUE(isTiny({{"title", ""}, {"message", "M"}}));
  EXPECT_FALSE(isTiny({{"title", "T"}, {"message", "M"}}));
}

TEST(Attachment, WithoutBrimThePlatformsBannerRemains) {
  Phone phone = phoneWith({}, [](runner::Options& options) { options.library = process::LibraryUse::Absent; });
  const int controller = phone.present({{"title", "Anna"}});
  EXPECT_TRUE(phone.banner(controller).is_null());
  EXPECT_FALSE(test::firstNode(phone.windows(controller), "class", "NCNotificationShortLookView").is_null());
  EXPECT_FALSE(phone.state(controller).at("brim"));
}

}  // namespace
