#include <gtest/gtest.h>

#include "tests/library/actions.hpp"
#include "tests/library/controllers.hpp"

namespace {

using test::action;
using test::closeIdentifier;
using test::containerOf;
using test::controllerOf;
using test::eventsOf;
using test::executedActions;
using test::hapticCount;
using test::Identifiers;
using test::Json;
using test::Phone;
using test::presentAlarm;
using test::snoozeIdentifier;

std::vector<std::string> alarmActions(int controller) {
  const objc::AutoreleasePool pool;
  std::vector<std::string> found;
  NSArray* actions = controllerOf(controller)->getAlarmActions();
  for (NSUInteger index = 0; index < actions->count(); ++index)
    found.push_back(base::textOf(static_cast<NCNotificationAction*>(actions->objectAtIndex(index))->identifier()));
  return found;
}

void executeOnAlarm(int controller, NSUInteger index) {
  objc::send<void, "executeOnAlarmForView:action:">(controllerOf(controller).get(), containerOf(controller), index);
}

TEST(AlarmActions, AreSnoozeAndClose) {
  Phone phone;
  EXPECT_EQ(alarmActions(presentAlarm(phone, Json::array({action(snoozeIdentifier)}))),
            (Identifiers{snoozeIdentifier, closeIdentifier}));
}

TEST(AlarmActions, ContainOnlyCloseIfThereIsNoSnooze) {
  Phone phone;
  EXPECT_EQ(alarmActions(presentAlarm(phone, Json::array())), Identifiers{closeIdentifier});
}

TEST(AlarmActions, AreEmptyIfThereIsNeitherSnoozeNorClose) {
  Phone phone;
  const int controller = presentAlarm(phone, Json::array(), test::CloseAction::Omitted);
  EXPECT_EQ(alarmActions(controller), Identifiers{});
  EXPECT_NE(controllerOf(controller)->getAlarmActions(), nullptr);
}

TEST(AlarmActions, SnoozeIsMatchedByACaseSensitiveSubstring) {
  Phone phone;
  EXPECT_EQ(alarmActions(presentAlarm(phone, Json::array({action("com.x.MTAlarmSnoozeAction.1")}))).size(), 2U);
  phone.run({{"do", "lock"}});
  EXPECT_EQ(alarmActions(presentAlarm(phone, Json::array({action("mtalarmsnoozeaction")}))),
            Identifiers{closeIdentifier});
}

TEST(AlarmActions, SnoozeIsOnlyFoundAtTheFirstPosition) {
  Phone phone;
  EXPECT_EQ(alarmActions(presentAlarm(phone, {action("first"), action(snoozeIdentifier)})),
            Identifiers{closeIdentifier});
}

TEST(AlarmActions, ActionsWithoutAnIdentifierAreSkipped) {
  Phone phone;
  EXPECT_EQ(alarmActions(presentAlarm(phone, {{{"key", "a"}, {"title", "Nameless"}}, action(snoozeIdentifier, "b")})),
            (Identifiers{snoozeIdentifier, closeIdentifier}));
}

TEST(AlarmActions, IndexSelectsTheAction) {
  Phone phone;
  const int controller = presentAlarm(phone, Json::array({action(snoozeIdentifier)}));
  executeOnAlarm(controller, 1);
  const Json events = phone.log();
  EXPECT_EQ(executedActions(events), Identifiers{closeIdentifier});
  EXPECT_EQ(eventsOf(events, "action")[0].at("animated"), false);
  EXPECT_EQ(eventsOf(events, "action")[0].at("parameters"), Json::object());
  EXPECT_EQ(hapticCount(events), 1U);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(AlarmActions, IndexOutOfRangeDismissesWithoutAnAction) {
  Phone phone;
  const int controller = presentAlarm(phone, Json::array({action(snoozeIdentifier)}));
  for (const NSUInteger index : {NSUInteger{2}, NSUInteger{3}, ~NSUInteger{0}}) executeOnAlarm(controller, index);
  EXPECT_EQ(executedActions(phone.log()), Identifiers{});
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(AlarmActions, ViewCanBeNil) {
  Phone phone;
  const int controller = presentAlarm(phone, Json::array({action(snoozeIdentifier)}));
  objc::send<void, "executeOnAlarmForView:action:">(controllerOf(controller).get(),
                                                    static_cast<BrimContainer*>(nullptr), NSUInteger{0});
  EXPECT_EQ(executedActions(phone.log()), Identifiers{snoozeIdentifier});
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(AlarmButtons, SnoozeAndStopExecuteTheirActions) {
  Phone phone;
  for (const auto& [label, identifier] : {std::pair{"Snooze", snoozeIdentifier}, {"Stop", closeIdentifier}}) {
    const int controller = presentAlarm(phone, Json::array({action(snoozeIdentifier)}));
    phone.run({{"do", "drag"}, {"by", {0, 200}}});
    phone.wait(1);
    phone.run({{"do", "tap"}, {"label", label}});
    EXPECT_EQ(executedActions(phone.log()), Identifiers{identifier});
    phone.wait(2);
    EXPECT_TRUE(phone.state(controller).at("dismissed"));
  }
}

TEST(AlarmButtons, StopExecutesTheOnlyAction) {
  Phone phone;
  presentAlarm(phone, Json::array());
  phone.run({{"do", "drag"}, {"by", {0, 200}}});
  phone.wait(1);
  phone.run({{"do", "tap"}, {"label", "Stop"}});
  EXPECT_EQ(executedActions(phone.log()), Identifiers{closeIdentifier});
}

}  // namespace
