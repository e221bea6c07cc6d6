#include <gtest/gtest.h>

#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::controllerOf;
using test::eventsOf;
using test::Json;
using test::Phone;

const Json persistent = {{"title", "Anna"}, {"message", "Hello"}, {"dismissAutomatically", false}};

std::string body(Phone& phone, int controller) { return phone.view(controller, "bodyLabel").value("text", ""); }

// Presents two banners that are on screen together, because the newer banner has not dismissed the older one yet.
// Returns the numbers of their controllers, the older one first.
std::pair<int, int> presentTwo(Phone& phone) {
  const int older = phone.present({{"title", "One"}, {"message", "1"}});
  phone.wait(1);
  const int newer = phone.present({{"title", "Two"}, {"message", "2"}});
  phone.wait(0.2);
  return {older, newer};
}

TEST(CommandChannel, LockingRemovesEveryBannerImmediately) {
  Phone phone;
  const auto [older, newer] = presentTwo(phone);
  ASSERT_TRUE(phone.state(older).at("brim"));
  ASSERT_TRUE(phone.state(newer).at("brim"));
  phone.run({{"do", "lock"}});
  for (const int controller : {older, newer}) {
    EXPECT_FALSE(phone.state(controller).at("brim"));
    EXPECT_TRUE(phone.state(controller).at("dismissed"));
  }
  phone.wait(10);
  const auto seen = eventsOf(phone.log(), "dismiss");
  ASSERT_EQ(seen.size(), 2U);
  for (const Json& event : seen) EXPECT_EQ(event.at("transition"), 0);
}

TEST(CommandChannel, LockingAllowsTheNextBanner) {
  Phone phone;
  phone.present(persistent);
  phone.run({{"do", "lock"}});
  EXPECT_TRUE(phone.state(phone.present()).at("brim"));
}

TEST(CommandChannel, GrabberIsHandledByThePlatformWithoutAPersistentBanner) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}});
  phone.wait(1);
  phone.log();
  EXPECT_TRUE(phone.run({{"do", "grabber"}}).at("dismissed"));
  EXPECT_EQ(phone.log(), Json::array());
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

TEST(CommandChannel, GrabberDismissesAPersistentBanner) {
  Phone phone;
  const int controller = phone.present(persistent);
  phone.wait(1);
  phone.log();
  EXPECT_TRUE(phone.run({{"do", "grabber"}}).at("dismissed"));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_TRUE(phone.state(controller).at("brim"));
  phone.wait(1);
  EXPECT_TRUE(phone.state(controller).at("hasDismissed"));
}

TEST(CommandChannel, GrabberDismissesAnExpandedBanner) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}});
  phone.wait(1);
  phone.run({{"do", "drag"}, {"by", {0, 200}}});
  phone.wait(1);
  phone.run({{"do", "grabber"}});
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(CommandChannel, UpdateAppliesOnlyToABannerWithTheSameHeader) {
  Phone phone;
  const int controller = phone.present(persistent);
  test::postCommand({{"command", "updateReply"}, {"header", "Bert"}, {"body", "Not for Anna"}});
  EXPECT_EQ(body(phone, controller), "Hello");
  test::postCommand({{"command", "updateReply"}, {"header", "Anna"}, {"body", "More"}});
  EXPECT_EQ(body(phone, controller), "Hello\nMore");
}

TEST(CommandChannel, UpdateWithoutHeaderOrBodyChangesNothing) {
  Phone phone;
  const int controller = phone.present(persistent);
  test::postCommand({{"command", "updateReply"}, {"header", "Anna"}});
  test::postCommand({{"command", "updateReply"}, {"body", "More"}});
  EXPECT_EQ(body(phone, controller), "Hello");
}

TEST(CommandChannel, UpdateDoesNotApplyToABannerThatCannotReply) {
  Phone phone;
  Json fields = persistent;
  fields["section"] = "com.apple.mobilemail";
  const int controller = phone.present(fields);
  test::postCommand({{"command", "updateReply"}, {"header", "Anna"}, {"body", "More"}});
  EXPECT_EQ(body(phone, controller), "Hello");
}

TEST(CommandChannel, UpdateIsComparedWithTheOriginalHeader) {
  Phone phone(test::Setup{.options = {}, .settings = {{"hide_unless_expanded", true}}});
  const int controller = phone.present(persistent);
  test::postCommand({{"command", "updateReply"}, {"header", "Anna"}, {"body", "More"}});
  EXPECT_EQ(body(phone, controller), "\nMore");
}

TEST(CommandChannel, FollowUpIsAppendedToAPersistentBannerAndCleared) {
  Phone phone;
  const int controller = phone.present(persistent);
  phone.wait(1);
  phone.log();
  const Json answer = phone.run({{"do", "update"}, {"controller", controller}, {"message", "And cake"}});
  EXPECT_FALSE(answer.contains("controller"));
  EXPECT_EQ(body(phone, controller), "Hello\nAnd cake");
  const Json events = phone.log();
  EXPECT_TRUE(eventsOf(events, "present").empty());
  const auto posted = eventsOf(events, "post");
  ASSERT_EQ(posted.size(), 1U);
  EXPECT_EQ(posted[0].at("userInfo"), Json({{"body", "And cake"}, {"command", "updateReply"}, {"header", "Anna"}}));
  const auto actions = eventsOf(events, "action");
  ASSERT_EQ(actions.size(), 1U);
  EXPECT_EQ(actions[0].at("identifier"), "com.apple.UNNotificationDismissActionIdentifier");
  EXPECT_TRUE(eventsOf(events, "haptic").empty());
}

TEST(CommandChannel, FollowUpWithoutATitleUsesTheSubtitleAsHeader) {
  Phone phone;
  const int controller = phone.present({{"subtitle", "Anna"}, {"message", "Hello"}, {"dismissAutomatically", false}});
  phone.run({{"do", "update"}, {"controller", controller}, {"message", "More"}});
  EXPECT_EQ(body(phone, controller), "Hello\nMore");
}

TEST(CommandChannel, FollowUpWithoutAHeaderIsIgnored) {
  Phone phone;
  const int controller = phone.present({{"message", "Hello"}, {"dismissAutomatically", false}});
  phone.wait(1);
  phone.log();
  phone.run({{"do", "update"}, {"controller", controller}, {"message", "More"}});
  EXPECT_EQ(phone.log(), Json::array());
  EXPECT_EQ(body(phone, controller), "Hello");
}

TEST(CommandChannel, FollowUpOfABannerThatHasATimerIsPresented) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  phone.wait(1);
  const Json answer = phone.run({{"do", "update"}, {"controller", controller}, {"message", "More"}});
  EXPECT_EQ(body(phone, answer.at("controller")), "More");
  EXPECT_EQ(eventsOf(phone.log(), "present").size(), 1U);
}

TEST(CommandChannel, ReplacementDoesNotRestartARunningDismissal) {
  Phone phone;
  const int older = phone.present({{"title", "One"}, {"message", "1"}});
  phone.wait(1);
  controllerOf(older)->forceDismissNotification(nullptr);
  phone.wait(0.1);
  const int newer = phone.present({{"title", "Two"}, {"message", "2"}});
  phone.wait(0.55);
  // A second dismissal request would have ended the animation immediately.
  EXPECT_TRUE(phone.state(older).at("brim"));
  phone.wait(0.08);
  EXPECT_FALSE(phone.state(older).at("brim"));
  EXPECT_TRUE(phone.state(older).at("wasExternallyDismissed"));
  EXPECT_FALSE(controllerOf(newer)->wasExternallyDismissed());
}

TEST(CommandChannel, ReplacementWithoutAnIdentifierDismissesEveryBanner) {
  Phone phone;
  const int controller = phone.present({{"title", "One"}});
  phone.wait(1);
  test::postCommand({{"command", "isExternallyDismissed"}});
  EXPECT_TRUE(phone.state(controller).at("wasExternallyDismissed"));
  phone.wait(0.499);
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
  phone.wait(0.002);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(CommandChannel, UnknownCommandsAreIgnored) {
  Phone phone;
  const int controller = phone.present({{"title", "One"}});
  phone.wait(1);
  const Json before = phone.state(controller);
  test::postCommand({});
  test::postCommand({{"command", ""}});
  test::postCommand({{"command", "DISMISS"}});
  test::postCommand({{"command", "explode"}});
  test::postNotification("BrimNotifications", {{"command", "dismissnoani"}});
  EXPECT_EQ(phone.state(controller), before);
}

// Sends the message that the notification center sends for a notification with this name and the command "dismiss".
void receive(BannerController* controller, NSString* name) {
  NSMutableDictionary* userInfo = NSMutableDictionary::dictionaryWithCapacity(1);
  userInfo->setObject("dismiss"_ns, "command"_ns);
  auto* notification = objc::send<NSNotification*, "notificationWithName:object:userInfo:">(
      NSNotification::classObject(), name, static_cast<NSObject*>(nullptr), static_cast<NSDictionary*>(userInfo));
  objc::send<void, "receivedBrimNotification:">(controller, notification);
}

TEST(CommandChannel, NotificationsWithAnotherNameAreIgnored) {
  Phone phone;
  const int controller = phone.present({{"title", "One"}});
  phone.wait(1);
  for (NSString* name : {"BrimNotifications"_ns, "brimnotification"_ns, ""_ns}) {
    receive(controllerOf(controller), name);
    EXPECT_FALSE(phone.state(controller).at("isDismissing")) << name->UTF8String();
  }
  receive(controllerOf(controller), "BrimNotification"_ns);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(CommandChannel, ValuesThatAreNotStringsAreIgnored) {
  Phone phone;
  const int controller = phone.present(persistent);
  const Json before = phone.state(controller);
  for (const Json& userInfo : {Json({{"command", 1}}), Json({{"command", {"dismiss"}}}),
                               Json({{"command", "updateReply"}, {"header", 1}, {"body", Json::array()}})})
    NSNotificationCenter::defaultCenter()->post("BrimNotification"_ns,
                                                objc::as<NSDictionary>(base::objectOf(userInfo)));
  NSNotificationCenter::defaultCenter()->post("BrimNotification"_ns, nullptr);
  EXPECT_EQ(phone.state(controller), before);
  EXPECT_EQ(body(phone, controller), "Hello");
}

TEST(CommandChannel, ControllersThatNeverHadABannerIgnoreCommands) {
  Phone phone(test::Setup{.options = {}, .settings = {}});
  phone.present(persistent);
  const auto secondController = springboard::makeShortLookController(controllerOf(1)->notificationRequest());
  auto* controller = reinterpret_cast<BannerController*>(secondController.get());
  controller->view();
  test::postCommand({{"command", "isExternallyDismissed"}});
  EXPECT_FALSE(controller->wasExternallyDismissed());
}

TEST(CommandChannel, ReleasedControllersReceiveNoCommands) {
  Phone phone;
  const int controller = phone.present({{"title", "One"}});
  phone.wait(20);
  ASSERT_EQ(controllerOf(controller), nullptr);
  test::postCommand({{"command", "dismiss"}});
}

}  // namespace
