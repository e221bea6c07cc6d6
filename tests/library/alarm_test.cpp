#include <gtest/gtest.h>

#include "tests/library/actions.hpp"
#include "tests/library/controllers.hpp"

namespace {

using test::action;
using test::close;
using test::containerOf;
using test::controllerOf;
using test::eventsOf;
using test::executed;
using test::haptics;
using test::Identifiers;
using test::Json;
using test::Phone;
using test::presentAlarm;
using test::snooze;

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

}  // namespace
