// Tests of the changes that the library makes to the notification list, and of changes that it must not make.
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

std::vector<std::string> listedMessages(Phone& phone) {
  const Json all = phone.run({{"do", "notifications"}}).at("notifications");
  std::vector<std::string> messages;
  for (const Json& notification : all) messages.push_back(notification.at("message"));
  return messages;
}

void expand(Phone& phone) {
  phone.run({{"do", "drag"}, {"by", {0, 200}}});
  phone.wait(1);
}

using Messages = std::vector<std::string>;

TEST(NotificationList, ClearRemovesTheNotification) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  present(phone, {{"message", "stays"}});
  present(phone, {{"message", "cleared"}});
  expand(phone);
  phone.run({{"do", "tap"}, {"label", "Clear"}});
  EXPECT_EQ(listedMessages(phone), Messages{"stays"});
}

TEST(NotificationList, CloseKeepsTheNotification) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  const int controller = present(phone);
  expand(phone);
  phone.run({{"do", "tap"}, {"label", "Close"}});
  phone.wait(3);
  EXPECT_TRUE(phone.state(controller).at("dismissed"));
  EXPECT_EQ(listedMessages(phone), Messages{"Hello"});
}

TEST(NotificationList, TimerDragAndReplacementKeepTheNotification) {
  Phone phone;
  present(phone, {{"message", "timer"}});
  phone.wait(10);
  present(phone, {{"message", "drag"}});
  phone.run({{"do", "drag"}, {"by", {0, -100}}});
  phone.wait(3);
  present(phone, {{"message", "replaced"}});
  present(phone, {{"message", "replacing"}});
  phone.wait(10);
  EXPECT_EQ(listedMessages(phone), (Messages{"replacing", "replaced", "drag", "timer"}));
}

TEST(NotificationList, ReplyRemovesTheNotification) {
  Phone phone;
  present(phone, {{"actions", {{{"key", "key"}, {"identifier", "reply"}, {"title", "Reply"}, {"textInput", true}}}}});
  expand(phone);
  phone.run({{"do", "type"}, {"text", "Yes"}});
  phone.run({{"do", "key"}, {"name", "return"}});
  EXPECT_EQ(listedMessages(phone), Messages{});
}

TEST(NotificationList, SnoozeAndStopRemoveTheAlarm) {
  Phone phone;
  for (const char* button : {"Snooze", "Stop"}) {
    present(phone, {{"section", "com.apple.mobiletimer"},
                    {"close", true},
                    {"actions", {{{"key", "key"}, {"identifier", "MTAlarmSnoozeAction"}, {"title", "Snooze"}}}}});
    expand(phone);
    phone.run({{"do", "tap"}, {"label", button}});
    EXPECT_EQ(listedMessages(phone), Messages{}) << button;
    phone.wait(5);
  }
}

TEST(NotificationList, FollowUpThatIsAppendedToTheBannerIsRemoved) {
  Phone phone;
  const int controller = present(phone, {{"section", "com.apple.MobileSMS"}});
  expand(phone);
  phone.run({{"do", "update"}, {"controller", controller}, {"message", "And another thing"}});
  EXPECT_EQ(listedMessages(phone), Messages{});
  EXPECT_TRUE(phone.state(controller).at("brim"));
}

TEST(NotificationList, WithdrawalDoesNotDismissTheBanner) {
  Phone phone;
  const int controller = present(phone);
  phone.run({{"do", "withdraw"}});
  phone.wait(1);
  EXPECT_TRUE(phone.state(controller).at("brim"));
  EXPECT_EQ(listedMessages(phone), Messages{});
}

TEST(NotificationList, ShowsThePlatformsContentOnTheLockScreen) {
  Phone phone;
  present(phone);
  phone.run({{"do", "lock"}});
  phone.wait(2);
  const Json windows = phone.windows();
  EXPECT_EQ(test::nodes(windows, [](const Json& node) { return node.at("class") == "BrimContainer"; }).size(), 0U);
  EXPECT_FALSE(test::firstNode(windows, "class", "NCNotificationListCell").is_null());
  EXPECT_FALSE(test::firstNode(windows, "text", "Hello").is_null());
}

TEST(NotificationList, PresentsThePlatformsLongLook) {
  Phone phone;
  present(phone);
  phone.run({{"do", "lock"}});
  phone.wait(2);
  const auto* list = objc::state(objc::state(SBLockScreenManager::sharedInstance()).sheet.get()).list.get();
  const auto* cell = static_cast<NCNotificationListCell*>(list->subviews()->firstObject());
  objc::send<void, "_presentLongLookForScrollAnimated:completion:">(objc::state(cell).controller.get(), true,
                                                                    static_cast<objc::Block<void(bool)>*>(nullptr));
  phone.wait(1);
  const Json windows = phone.windows();
  EXPECT_FALSE(test::firstNode(windows, "class", "NCNotificationLongLookView").is_null());
  EXPECT_TRUE(test::firstNode(windows, "class", "BrimContainer").is_null());
}

TEST(NotificationList, TapOnACellOpensTheApplication) {
  Phone phone;
  present(phone);
  phone.run({{"do", "lock"}});
  phone.wait(2);
  phone.log();
  phone.run({{"do", "tap"}, {"label", "Hello"}});
  EXPECT_EQ(listedMessages(phone), Messages{});
  EXPECT_EQ(phone.log().at(1).at("event"), "launch");
}

}  // namespace
