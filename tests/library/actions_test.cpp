#include <gtest/gtest.h>

#include "simulator/uikit/environment/environment.hpp"
#include "tests/library/actions.hpp"
#include "tests/library/controllers.hpp"

namespace {

using test::action;
using test::clearIdentifier;
using test::containerOf;
using test::controllerOf;
using test::eventsOf;
using test::executedActions;
using test::hapticCount;
using test::Identifiers;
using test::Json;
using test::Phone;
using test::presentAlarm;
using test::presentAndClearLog;
using test::snoozeIdentifier;

void executeOnAlarm(int controller, NSUInteger index) {
  objc::send<void, "executeOnAlarmForView:action:">(controllerOf(controller).get(), containerOf(controller), index);
}

void sendReply(int controller, NSString* text) {
  objc::send<void, "sendReplyForView:withText:">(controllerOf(controller).get(), static_cast<BrimContainer*>(nullptr),
                                                 text);
}

struct ReplyCase {
  const char* name;
  const char* identifier;
  bool isReply;
};

std::ostream& operator<<(std::ostream& out, const ReplyCase& each) { return out << each.name; }

class ReplyAction : public testing::TestWithParam<ReplyCase> {};

TEST_P(ReplyAction, IsRecognizedByItsIdentifier) {
  Phone phone;
  const int controller = presentAndClearLog(
      phone, {{"section", "org.example.chat"}, {"actions", Json::array({action(GetParam().identifier)})}});
  EXPECT_EQ(controllerOf(controller)->getReplyAction() != nullptr, GetParam().isReply);
  EXPECT_EQ(controllerOf(controller)->canReply(), GetParam().isReply);
  EXPECT_EQ(!phone.view(controller, "reply").is_null(), GetParam().isReply);
}

INSTANTIATE_TEST_SUITE_P(Words, ReplyAction,
                         testing::Values(ReplyCase{"Reply", "org.example.reply", true},
                                         ReplyCase{"Capitals", "QUICK_REPLY_ACTION", true},
                                         ReplyCase{"Message", "newMessage", true}, ReplyCase{"Send", "RESEND", true},
                                         ReplyCase{"Other", "markRead", false}, ReplyCase{"Empty", "", false}),
                         [](const auto& each) { return each.param.name; });

TEST(ReplyAction, IsTheFirstMatchAtAnyPosition) {
  Phone phone;
  const int controller = presentAndClearLog(
      phone, {{"section", "org.example.chat"}, {"actions", {action("like"), action("sendLike"), action("reply")}}});
  EXPECT_STREQ(controllerOf(controller)->getReplyAction()->identifier()->UTF8String(), "sendLike");
}

TEST(ReplyAction, IsTakenFromTheFirstGroupInDictionaryOrder) {
  Phone phone;
  const int controller = presentAndClearLog(
      phone, {{"section", "org.example.chat"}, {"actions", {action("reply.a", "a"), action("reply.b", "b")}}});
  const auto shortLook = controllerOf(controller);
  NSDictionary* groups = shortLook->notificationRequest()->supplementaryActions();
  auto* first = static_cast<NSArray*>(groups->objectForKey(groups->allKeys()->objectAtIndex(0)));
  EXPECT_EQ(shortLook->getReplyAction(), first->objectAtIndex(0));
}

// The Open button is disabled, so the banner receives the tap on it.
TEST(OpenButton, PassesItsTapToTheBannerWhichOpensTheApplication) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  const int controller = presentAndClearLog(phone, {{"section", "org.example.chat"}});
  phone.run({{"do", "drag"}, {"by", {0, 100}}});
  phone.wait(1);
  phone.run({{"do", "tap"}, {"label", "Open"}});
  EXPECT_EQ(eventsOf(phone.log(), "launch").size(), 1U);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(ReplyAction, IsNotRequiredForMessages) {
  Phone phone;
  const int controller = presentAndClearLog(phone);
  EXPECT_EQ(controllerOf(controller)->getReplyAction(), nullptr);
  EXPECT_TRUE(controllerOf(controller)->canReply());
}

TEST(Reply, ExecutesTheActionWithTheTextAndThenClears) {
  Phone phone;
  const int controller =
      presentAndClearLog(phone, {{"section", "org.example.chat"}, {"actions", Json::array({action("reply")})}});
  sendReply(controller, "Yes, at noon"_ns);
  const auto actions = eventsOf(phone.log(), "action");
  ASSERT_EQ(actions.size(), 2U);
  EXPECT_EQ(actions[0].at("identifier"), "reply");
  EXPECT_EQ(actions[0].at("parameters"), Json({{"UIUserNotificationActionResponseTypedTextKey", "Yes, at noon"}}));
  EXPECT_EQ(actions[0].at("animated"), false);
  EXPECT_EQ(actions[1].at("identifier"), clearIdentifier);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Reply, DoesNothingIfTheTextIsNil) {
  Phone phone;
  const int controller =
      presentAndClearLog(phone, {{"section", "org.example.chat"}, {"actions", Json::array({action("reply")})}});
  sendReply(controller, nullptr);
  phone.wait(1);
  EXPECT_EQ(phone.log(), Json::array());
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

TEST(Reply, IsPostedAsynchronouslyToTheMessagesApp) {
  Phone phone;
  const int controller = presentAndClearLog(phone, {{"thread", "+491234567"}});
  sendReply(controller, "Yes"_ns);
  EXPECT_EQ(phone.log(), Json::array());
  phone.wait(0);
  const Json events = phone.log();
  const auto posted = eventsOf(events, "distributed");
  ASSERT_EQ(posted.size(), 1U) << events;
  EXPECT_EQ(posted[0].at("name"), "com.lumetra.brim.receivedcontacts");
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Clear, ExecutesTheClearActionAndDismisses) {
  Phone phone;
  const int controller = presentAndClearLog(phone);
  controllerOf(controller)->attemptDelete(containerOf(controller));
  const Json events = phone.log();
  EXPECT_EQ(executedActions(events), Identifiers{clearIdentifier});
  EXPECT_EQ(hapticCount(events), 1U);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Clear, DismissesWithoutHapticIfThereIsNoClearAction) {
  Phone phone;
  const int controller = presentAndClearLog(phone, {{"clear", false}});
  controllerOf(controller)->attemptDelete(containerOf(controller));
  EXPECT_EQ(phone.log(), Json::array());
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Silence, ExecutesTheSilenceActionWithoutDismissing) {
  Phone phone;
  const int controller = presentAndClearLog(phone, {{"silence", true}});
  objc::send<void, "attemptSilence:">(controllerOf(controller).get(), containerOf(controller));
  const Json events = phone.log();
  EXPECT_EQ(executedActions(events), Identifiers{"com.apple.UNNotificationSilenceActionIdentifier"});
  EXPECT_EQ(hapticCount(events), 1U);
  phone.wait(2);
  EXPECT_TRUE(phone.state(controller).at("brim"));
}

TEST(Silence, DoesNothingIfThereIsNoSilenceAction) {
  Phone phone;
  const int controller = presentAndClearLog(phone);
  objc::send<void, "attemptSilence:">(controllerOf(controller).get(), containerOf(controller));
  EXPECT_EQ(phone.log(), Json::array());
}

TEST(Haptic, IsNotPlayedWhenSwitchedOff) {
  Phone phone({.options = {}, .settings = {{"vibrate_on_send", false}}});
  const int alarm = presentAlarm(phone, Json::array({action(snoozeIdentifier)}));
  executeOnAlarm(alarm, 0);
  phone.wait(2);
  EXPECT_EQ(hapticCount(phone.log()), 0U) << "alarm";
  const int silenced = presentAndClearLog(phone, {{"silence", true}});
  objc::send<void, "attemptSilence:">(controllerOf(silenced).get(), containerOf(silenced));
  EXPECT_EQ(hapticCount(phone.log()), 0U) << "silence";
  controllerOf(silenced)->attemptDelete(containerOf(silenced));
  phone.wait(2);
  EXPECT_EQ(hapticCount(phone.log()), 0U) << "clear";
  const int answered = presentAndClearLog(phone);
  sendReply(answered, "Yes"_ns);
  phone.wait(2);
  EXPECT_EQ(hapticCount(phone.log()), 0U) << "reply";
}

struct HapticCase {
  const char* name;
  int level;
  Json event;
};

std::ostream& operator<<(std::ostream& out, const HapticCase& each) { return out << each.name; }

class HapticKind : public testing::TestWithParam<HapticCase> {};

TEST_P(HapticKind, MatchesTheFeedbackSupportOfTheDevice) {
  Phone phone;
  uikit::Environment environment = uikit::environment();
  environment.device.feedbackSupportLevel = GetParam().level;
  uikit::setEnvironment(environment);
  const int controller = presentAndClearLog(phone);
  controllerOf(controller)->attemptDelete(containerOf(controller));
  EXPECT_EQ(phone.log()[1], GetParam().event);
}

INSTANTIATE_TEST_SUITE_P(Levels, HapticKind,
                         testing::Values(HapticCase{"Engine", 2, {{"event", "haptic"}, {"type", 0}}},
                                         HapticCase{"Pop", 1, {{"event", "sound"}, {"call", "system"}, {"id", 1520}}},
                                         HapticCase{"Motor", 0, {{"event", "sound"}, {"call", "alert"}, {"id", 4095}}},
                                         HapticCase{
                                             "Unknown", 7, {{"event", "sound"}, {"call", "alert"}, {"id", 4095}}}),
                         [](const auto& each) { return each.param.name; });

// A controller that shows no notification has no request.
TEST(ControllerWithoutRequest, ReturnsNothingAndExecutesNothing) {
  Phone phone;
  const auto empty = objc::adopt(objc::send<BannerController*, "initWithNotificationRequest:">(
      objc::allocate<BannerController>(), static_cast<NCNotificationRequest*>(nullptr)));
  EXPECT_EQ(empty->getAlarmActions(), nullptr);
  EXPECT_EQ(empty->getReplyAction(), nullptr);
  EXPECT_EQ(empty->getBundleId(), nullptr);
  EXPECT_FALSE(empty->isAlarm());
  EXPECT_FALSE(empty->canReply());
  EXPECT_TRUE(empty->shouldAutoDismiss());
  phone.log();
  static_cast<NotificationController*>(empty.get())->attemptDelete();
  objc::send<void, "attemptSilence:">(empty.get(), static_cast<BrimContainer*>(nullptr));
  objc::send<void, "executeOnAlarmForView:action:">(empty.get(), static_cast<BrimContainer*>(nullptr), NSUInteger{0});
  objc::send<void, "sendReplyForView:withText:">(empty.get(), static_cast<BrimContainer*>(nullptr), "Yes"_ns);
  empty->sendMessageReply(nullptr, "Yes"_ns);
  empty->markMessagesAsRead();
  phone.wait(1);
  EXPECT_EQ(phone.log(), Json::array());
  EXPECT_FALSE(empty->dismissCalled());
  static_cast<BannerController*>(empty.get())->attemptDelete(nullptr);
  EXPECT_TRUE(empty->dismissCalled());
}

}  // namespace
