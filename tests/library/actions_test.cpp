#include <gtest/gtest.h>

#include "simulator/uikit/environment.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::containerOf;
using test::controllerOf;
using test::Json;
using test::Phone;

constexpr const char* snooze = "MTAlarmSnoozeAction";
constexpr const char* close = "com.apple.UNNotificationCloseActionIdentifier";
constexpr const char* clear = "com.apple.UNNotificationDismissActionIdentifier";

int present(Phone& phone, const Json& fields = Json::object()) {
  Json all = {{"title", "Anna"}, {"message", "Hello"}, {"dismissAutomatically", false}};
  all.update(fields);
  const int controller = phone.present(all);
  phone.wait(1);
  phone.log();
  return controller;
}

Json action(const char* identifier, const char* key = "key") { return {{"key", key}, {"identifier", identifier}}; }

int presentAlarm(Phone& phone, const Json& actions, bool hasClose = true) {
  return present(phone, {{"section", "com.apple.mobiletimer"}, {"close", hasClose}, {"actions", actions}});
}

std::vector<Json> eventsOf(const Json& events, const std::string& kind) {
  return test::nodes(events, [&](const Json& event) { return event.at("event") == kind; });
}

std::vector<std::string> executed(const Json& events) {
  std::vector<std::string> found;
  for (const Json& event : eventsOf(events, "action")) found.push_back(event.at("identifier"));
  return found;
}

std::size_t haptics(const Json& events) { return eventsOf(events, "haptic").size() + eventsOf(events, "sound").size(); }

std::vector<std::string> alarmActions(int controller) {
  const objc::AutoreleasePool pool;
  std::vector<std::string> found;
  NSArray* actions = controllerOf(controller)->getAlarmActions();
  for (NSUInteger index = 0; index < actions->count(); ++index)
    found.push_back(
        springboard::textOf(static_cast<NCNotificationAction*>(actions->objectAtIndex(index))->identifier()));
  return found;
}

void executeOnAlarm(int controller, NSUInteger index) {
  objc::send<void, "executeOnAlarmForView:action:">(controllerOf(controller).get(), containerOf(controller), index);
}

void sendReply(int controller, NSString* text) {
  objc::send<void, "sendReplyForView:withText:">(controllerOf(controller).get(), static_cast<BrimContainer*>(nullptr),
                                                 text);
}

using Identifiers = std::vector<std::string>;

TEST(AlarmActions, AreSnoozeAndClose) {
  Phone phone;
  EXPECT_EQ(alarmActions(presentAlarm(phone, Json::array({action(snooze)}))), (Identifiers{snooze, close}));
}

TEST(AlarmActions, AreCloseAloneWithoutASnooze) {
  Phone phone;
  EXPECT_EQ(alarmActions(presentAlarm(phone, Json::array())), Identifiers{close});
}

TEST(AlarmActions, AreNoneWithoutEither) {
  Phone phone;
  const int controller = presentAlarm(phone, Json::array(), false);
  EXPECT_EQ(alarmActions(controller), Identifiers{});
  EXPECT_NE(controllerOf(controller)->getAlarmActions(), nullptr);
}

TEST(AlarmActions, SnoozeIsFoundByAPartOfItsIdentifierInItsOwnCase) {
  Phone phone;
  EXPECT_EQ(alarmActions(presentAlarm(phone, Json::array({action("com.x.MTAlarmSnoozeAction.1")}))).size(), 2U);
  phone.run({{"do", "lock"}});
  EXPECT_EQ(alarmActions(presentAlarm(phone, Json::array({action("mtalarmsnoozeaction")}))), Identifiers{close});
}

TEST(AlarmActions, SnoozeInSecondPlaceIsNotFound) {
  Phone phone;
  EXPECT_EQ(alarmActions(presentAlarm(phone, {action("first"), action(snooze)})), Identifiers{close});
}

TEST(AlarmActions, ActionsWithoutAnIdentifierArePassedOver) {
  Phone phone;
  EXPECT_EQ(alarmActions(presentAlarm(phone, {{{"key", "a"}, {"title", "Nameless"}}, action(snooze, "b")})),
            (Identifiers{snooze, close}));
}

TEST(AlarmActions, IndexChoosesTheAction) {
  Phone phone;
  const int controller = presentAlarm(phone, Json::array({action(snooze)}));
  executeOnAlarm(controller, 1);
  const Json events = phone.log();
  EXPECT_EQ(executed(events), Identifiers{close});
  EXPECT_EQ(eventsOf(events, "action")[0].at("animated"), false);
  EXPECT_EQ(eventsOf(events, "action")[0].at("parameters"), Json::object());
  EXPECT_EQ(haptics(events), 1U);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(AlarmActions, IndexOutsideTheListIsNoAction) {
  Phone phone;
  const int controller = presentAlarm(phone, Json::array({action(snooze)}));
  for (const NSUInteger index : {NSUInteger{2}, NSUInteger{3}, ~NSUInteger{0}}) executeOnAlarm(controller, index);
  EXPECT_EQ(executed(phone.log()), Identifiers{});
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(AlarmActions, ViewMayBeNil) {
  Phone phone;
  const int controller = presentAlarm(phone, Json::array({action(snooze)}));
  objc::send<void, "executeOnAlarmForView:action:">(controllerOf(controller).get(),
                                                    static_cast<BrimContainer*>(nullptr), NSUInteger{0});
  EXPECT_EQ(executed(phone.log()), Identifiers{snooze});
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(AlarmButtons, SnoozeAndStopHandTheirActionsOver) {
  Phone phone;
  for (const auto& [label, identifier] : {std::pair{"Snooze", snooze}, {"Stop", close}}) {
    const int controller = presentAlarm(phone, Json::array({action(snooze)}));
    phone.run({{"do", "drag"}, {"by", {0, 200}}});
    phone.wait(1);
    phone.run({{"do", "tap"}, {"label", label}});
    EXPECT_EQ(executed(phone.log()), Identifiers{identifier});
    phone.wait(2);
    EXPECT_TRUE(phone.state(controller).at("dismissed"));
  }
}

TEST(AlarmButtons, StopAloneNamesTheOnlyAction) {
  Phone phone;
  presentAlarm(phone, Json::array());
  phone.run({{"do", "drag"}, {"by", {0, 200}}});
  phone.wait(1);
  phone.run({{"do", "tap"}, {"label", "Stop"}});
  EXPECT_EQ(executed(phone.log()), Identifiers{close});
}

struct ReplyCase {
  const char* name;
  const char* identifier;
  bool isReply;
};

std::ostream& operator<<(std::ostream& out, const ReplyCase& each) { return out << each.name; }

class ReplyAction : public testing::TestWithParam<ReplyCase> {};

TEST_P(ReplyAction, IsKnownByItsIdentifier) {
  Phone phone;
  const int controller =
      present(phone, {{"section", "org.example.chat"}, {"actions", Json::array({action(GetParam().identifier)})}});
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

TEST(ReplyAction, IsTheFirstThatFitsWhereverItStands) {
  Phone phone;
  const int controller = present(
      phone, {{"section", "org.example.chat"}, {"actions", {action("like"), action("sendLike"), action("reply")}}});
  EXPECT_STREQ(controllerOf(controller)->getReplyAction()->identifier()->UTF8String(), "sendLike");
}

TEST(ReplyAction, OfSeveralGroupsIsTheFirstInTheDictionarysOrder) {
  Phone phone;
  const int controller =
      present(phone, {{"section", "org.example.chat"}, {"actions", {action("reply.a", "a"), action("reply.b", "b")}}});
  const auto held = controllerOf(controller);
  NSDictionary* groups = held->notificationRequest()->supplementaryActions();
  auto* first = static_cast<NSArray*>(groups->objectForKey(groups->allKeys()->objectAtIndex(0)));
  EXPECT_EQ(held->getReplyAction(), first->objectAtIndex(0));
}

TEST(ReplyAction, IsNotNeededByMessages) {
  Phone phone;
  const int controller = present(phone);
  EXPECT_EQ(controllerOf(controller)->getReplyAction(), nullptr);
  EXPECT_TRUE(controllerOf(controller)->canReply());
}

TEST(Reply, IsHandedToTheActionWithTheTextAndClears) {
  Phone phone;
  const int controller = present(phone, {{"section", "org.example.chat"}, {"actions", Json::array({action("reply")})}});
  sendReply(controller, "Yes, at noon"_ns);
  const auto actions = eventsOf(phone.log(), "action");
  ASSERT_EQ(actions.size(), 2U);
  EXPECT_EQ(actions[0].at("identifier"), "reply");
  EXPECT_EQ(actions[0].at("parameters"), Json({{"UIUserNotificationActionResponseTypedTextKey", "Yes, at noon"}}));
  EXPECT_EQ(actions[0].at("animated"), false);
  EXPECT_EQ(actions[1].at("identifier"), clear);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Reply, WithoutATextDoesNothing) {
  Phone phone;
  const int controller = present(phone, {{"section", "org.example.chat"}, {"actions", Json::array({action("reply")})}});
  sendReply(controller, nullptr);
  phone.wait(1);
  EXPECT_EQ(phone.log(), Json::array());
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

TEST(Reply, ToMessagesGoesThroughTheMessagesAppInALaterTurn) {
  Phone phone;
  const int controller = present(phone, {{"thread", "+491234567"}});
  sendReply(controller, "Yes"_ns);
  EXPECT_EQ(phone.log(), Json::array());
  phone.wait(0);
  const Json events = phone.log();
  const auto posted = eventsOf(events, "distributed");
  ASSERT_EQ(posted.size(), 1U) << events;
  EXPECT_EQ(posted[0].at("name"), "com.lumetra.brim.receivedcontacts");
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Clear, HandsTheClearActionOverAndDismisses) {
  Phone phone;
  const int controller = present(phone);
  controllerOf(controller)->attemptDelete(containerOf(controller));
  const Json events = phone.log();
  EXPECT_EQ(executed(events), Identifiers{clear});
  EXPECT_EQ(haptics(events), 1U);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Clear, WithoutAClearActionStillDismissesQuietly) {
  Phone phone;
  const int controller = present(phone, {{"clear", false}});
  controllerOf(controller)->attemptDelete(containerOf(controller));
  EXPECT_EQ(phone.log(), Json::array());
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Silence, HandsItsActionOverAndNeverDismisses) {
  Phone phone;
  const int controller = present(phone, {{"silence", true}});
  objc::send<void, "attemptSilence:">(controllerOf(controller).get(), containerOf(controller));
  const Json events = phone.log();
  EXPECT_EQ(executed(events), Identifiers{"com.apple.UNNotificationSilenceActionIdentifier"});
  EXPECT_EQ(haptics(events), 1U);
  phone.wait(2);
  EXPECT_TRUE(phone.state(controller).at("brim"));
}

TEST(Silence, WithoutItsActionDoesNothing) {
  Phone phone;
  const int controller = present(phone);
  objc::send<void, "attemptSilence:">(controllerOf(controller).get(), containerOf(controller));
  EXPECT_EQ(phone.log(), Json::array());
}

TEST(Haptic, IsNotPlayedWhenSwitchedOff) {
  Phone phone({.options = {}, .settings = {{"vibrate_on_send", false}}});
  const int alarm = presentAlarm(phone, Json::array({action(snooze)}));
  executeOnAlarm(alarm, 0);
  phone.wait(2);
  const int silenced = present(phone, {{"silence", true}});
  objc::send<void, "attemptSilence:">(controllerOf(silenced).get(), containerOf(silenced));
  controllerOf(silenced)->attemptDelete(containerOf(silenced));
  phone.wait(2);
  const int answered = present(phone);
  sendReply(answered, "Yes"_ns);
  phone.wait(2);
  EXPECT_EQ(haptics(phone.log()), 0U);
}

struct HapticCase {
  const char* name;
  int level;
  Json event;
};

std::ostream& operator<<(std::ostream& out, const HapticCase& each) { return out << each.name; }

class HapticKind : public testing::TestWithParam<HapticCase> {};

TEST_P(HapticKind, IsThatOfTheDevice) {
  Phone phone;
  uikit::Environment environment = uikit::environment();
  environment.device.feedbackSupportLevel = GetParam().level;
  uikit::setEnvironment(environment);
  const int controller = present(phone);
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

// A controller that shows nothing has no request.
TEST(ControllerWithoutRequest, AnswersNothingAndDoesNothing) {
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
  empty->markMessagesAsRead();
  phone.wait(1);
  EXPECT_EQ(phone.log(), Json::array());
  EXPECT_FALSE(empty->dismissCalled());
  static_cast<BannerController*>(empty.get())->attemptDelete(nullptr);
  EXPECT_TRUE(empty->dismissCalled());
}

}  // namespace
