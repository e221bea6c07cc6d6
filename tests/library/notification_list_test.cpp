// What the library does to the notification list, and what it leaves alone there.
#include <gtest/gtest.h>

#include "simulator/springboard/list/notification_list_cell.hpp"
#include "simulator/springboard/shell/lock_screen.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::Json;
using test::Phone;

int present(Phone& phone, const Json& fields = Json::object()) {
  Json all = {{"title", "Anna"}, {"message", "Hello"}, {"section", "com.apple.mobilemail"}};
  all.update(fields);
  const int controller = phone.present(all);
  phone.wait(1);
  return controller;
}

std::vector<std::string> listed(Phone& phone) {
  const Json all = phone.run({{"do", "notifications"}}).at("notifications");
  std::vector<std::string> messages;
  for (const Json& notification : all) messages.push_back(notification.at("message"));
  return messages;
}

void pullOpen(Phone& phone) {
  phone.run({{"do", "drag"}, {"by", {0, 200}}});
  phone.wait(1);
}

using Messages = std::vector<std::string>;

TEST(List, ClearTakesTheNotificationFromIt) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  present(phone, {{"message", "stays"}});
  present(phone, {{"message", "cleared"}});
  pullOpen(phone);
  phone.run({{"do", "tap"}, {"label", "Clear"}});
  EXPECT_EQ(listed(phone), Messages{"stays"});
}

TEST(List, CloseLeavesTheNotificationInIt) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  const int controller = present(phone);
  pullOpen(phone);
  phone.run({{"do", "tap"}, {"label", "Close"}});
  phone.wait(3);
  EXPECT_TRUE(phone.state(controller).at("dismissed"));
  EXPECT_EQ(listed(phone), Messages{"Hello"});
}

TEST(List, TimerAndDragAndReplacementLeaveTheNotificationInIt) {
  Phone phone;
  present(phone, {{"message", "timer"}});
  phone.wait(10);
  present(phone, {{"message", "drag"}});
  phone.run({{"do", "drag"}, {"by", {0, -100}}});
  phone.wait(3);
  present(phone, {{"message", "replaced"}});
  present(phone, {{"message", "replacing"}});
  phone.wait(10);
  EXPECT_EQ(listed(phone), (Messages{"replacing", "replaced", "drag", "timer"}));
}

TEST(List, AnAnsweredNotificationLeavesIt) {
  Phone phone;
  present(phone, {{"actions", {{{"key", "key"}, {"identifier", "reply"}, {"title", "Reply"}, {"textInput", true}}}}});
  pullOpen(phone);
  phone.run({{"do", "type"}, {"text", "Yes"}});
  phone.run({{"do", "key"}, {"name", "return"}});
  EXPECT_EQ(listed(phone), Messages{});
}

TEST(List, ASnoozedOrStoppedAlarmLeavesIt) {
  Phone phone;
  for (const char* button : {"Snooze", "Stop"}) {
    present(phone, {{"section", "com.apple.mobiletimer"},
                    {"close", true},
                    {"actions", {{{"key", "key"}, {"identifier", "MTAlarmSnoozeAction"}, {"title", "Snooze"}}}}});
    pullOpen(phone);
    phone.run({{"do", "tap"}, {"label", button}});
    EXPECT_EQ(listed(phone), Messages{}) << button;
    phone.wait(5);
  }
}

TEST(List, AFollowUpThatTheBannerTakesUpIsCleared) {
  Phone phone;
  const int controller = present(phone, {{"section", "com.apple.MobileSMS"}});
  pullOpen(phone);
  phone.run({{"do", "update"}, {"controller", controller}, {"message", "And another thing"}});
  EXPECT_EQ(listed(phone), Messages{});
  EXPECT_TRUE(phone.state(controller).at("brim"));
}

TEST(List, AWithdrawalDoesNotTakeTheBannerAway) {
  Phone phone;
  const int controller = present(phone);
  phone.run({{"do", "withdraw"}});
  phone.wait(1);
  EXPECT_TRUE(phone.state(controller).at("brim"));
  EXPECT_EQ(listed(phone), Messages{});
}

TEST(List, OnTheLockScreenIsThePlatformsOwn) {
  Phone phone;
  present(phone);
  phone.run({{"do", "lock"}});
  phone.wait(2);
  const Json windows = phone.windows();
  EXPECT_EQ(test::nodes(windows, [](const Json& node) { return node.at("class") == "BrimContainer"; }).size(), 0U);
  EXPECT_FALSE(test::firstNode(windows, "class", "NCNotificationListCell").is_null());
  EXPECT_FALSE(test::firstNode(windows, "text", "Hello").is_null());
}

TEST(List, OpensTheLongLookWhichIsThePlatformsOwnToo) {
  Phone phone;
  present(phone);
  phone.run({{"do", "lock"}});
  phone.wait(2);
  const auto* list = objc::state(SBLockScreenManager::sharedInstance()).list.get();
  const auto* cell = static_cast<NCNotificationListCell*>(list->subviews()->firstObject());
  objc::send<void, "_presentLongLookForScrollAnimated:completion:">(objc::state(cell).controller.get(), true,
                                                                    static_cast<objc::Block<void(bool)>*>(nullptr));
  phone.wait(1);
  const Json windows = phone.windows();
  EXPECT_FALSE(test::firstNode(windows, "class", "NCNotificationLongLookView").is_null());
  EXPECT_TRUE(test::firstNode(windows, "class", "BrimContainer").is_null());
}

TEST(List, ATapOnItsCellOpensTheApplication) {
  Phone phone;
  present(phone);
  phone.run({{"do", "lock"}});
  phone.wait(2);
  phone.log();
  phone.run({{"do", "tap"}, {"label", "Hello"}});
  EXPECT_EQ(listed(phone), Messages{});
  EXPECT_EQ(phone.log().at(1).at("event"), "launch");
}

}  // namespace
