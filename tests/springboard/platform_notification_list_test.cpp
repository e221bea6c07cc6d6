// Tests of the notification list: its order, and the clearing and withdrawal of its notifications.
#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/springboard/services/bulletin_server.hpp"
#include "simulator/springboard/services/notification_description.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"
#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

Json listed(PlainPhone& phone) { return phone.run("notifications").at("notifications"); }

std::vector<std::string> messages(PlainPhone& phone) {
  std::vector<std::string> found;
  for (const Json& notification : listed(phone)) found.push_back(notification.at("message"));
  return found;
}

using Messages = std::vector<std::string>;

TEST(NotificationList, ContainsPresentedNotifications) {
  PlainPhone phone({.time = 1584178860});
  phone.present({{"identifier", "one"}, {"thread", "chat"}, {"title", "Anna"}, {"message", "Lunch?"}});
  EXPECT_EQ(listed(phone), Json::array({{{"section", "com.apple.MobileSMS"},
                                         {"identifier", "one"},
                                         {"thread", "chat"},
                                         {"title", "Anna"},
                                         {"subtitle", nullptr},
                                         {"message", "Lunch?"},
                                         {"date", "2020-03-14T09:41:00.000Z"}}}));
}

TEST(NotificationList, KeepsDismissedNotifications) {
  PlainPhone phone;
  const int controller = phone.present();
  phone.run("dismiss", {{"controller", controller}});
  phone.wait(10);
  ASSERT_TRUE(phone.isDismissed(controller));
  EXPECT_EQ(listed(phone).size(), 1U);
}

TEST(NotificationList, RemovesOpenedNotifications) {
  PlainPhone phone;
  phone.present({{"message", "stays"}});
  const int controller = phone.present({{"message", "opened"}});
  phone.wait(1);
  phone.run("tap", {{"controller", controller}});
  EXPECT_EQ(messages(phone), Messages{"stays"});
}

TEST(NotificationList, IsSortedLatestFirst) {
  PlainPhone phone;
  phone.present({{"message", "noon"}, {"at", "2020-03-14T12:00:00Z"}});
  phone.present({{"message", "night"}, {"at", "2020-03-14T23:00:00Z"}});
  phone.present({{"message", "morning"}, {"at", "2020-03-14T07:00:00Z"}});
  phone.present({{"message", "noon again"}, {"at", "2020-03-14T12:00:00Z"}});
  EXPECT_EQ(messages(phone), (Messages{"night", "noon again", "noon", "morning"}));
}

TEST(NotificationList, SameIdentifierReplacesAndMovesToTheTop) {
  PlainPhone phone;
  phone.present({{"identifier", "score"}, {"message", "1:0"}});
  phone.wait(1);
  phone.present({{"message", "other"}});
  phone.wait(1);
  phone.present({{"identifier", "score"}, {"message", "2:0"}});
  EXPECT_EQ(messages(phone), (Messages{"2:0", "other"}));
}

TEST(NotificationList, SameIdentifierInAnotherSectionIsANewNotification) {
  PlainPhone phone;
  phone.present({{"section", "a.b"}, {"identifier", "1"}});
  phone.present({{"section", "a.c"}, {"identifier", "1"}});
  EXPECT_EQ(listed(phone).size(), 2U);
}

TEST(NotificationList, FollowUpChangesTheTextOfItsRequest) {
  PlainPhone phone;
  const int controller = phone.present({{"message", "One"}});
  phone.run("update", {{"controller", controller}, {"message", "Two"}});
  EXPECT_EQ(messages(phone), Messages{"Two"});
}

TEST(NotificationList, KeepsTheLatestThousandNotifications) {
  PlainPhone phone;
  for (int number = 0; number < 300; ++number) phone.present({{"message", std::to_string(number)}});
  EXPECT_EQ(listed(phone).size(), 300U);
  for (int number = 300; number < 1005; ++number) phone.present({{"message", std::to_string(number)}});
  const Messages all = messages(phone);
  EXPECT_EQ(all.size(), 1000U);
  EXPECT_EQ(all.front(), "1004");
  EXPECT_EQ(all.back(), "5");
}

class Clearing : public testing::Test {
 protected:
  NCNotificationRequest* present(const char* message) {
    phone.present({{"message", message}});
    requests.push_back(dispatcher()->list().all().front());
    return requests.back();
  }
  static void clear(NCNotificationRequest* request) {
    dispatcher()->execute(request->clearAction(), request, NSDictionary::dictionary());
    foundation::drainMainQueue();
  }
  static NCNotificationDispatcher* dispatcher() { return NCNotificationDispatcher::shared(); }

  PlainPhone phone;
  objc::AutoreleasePool pool;
  springboard::NotificationGroup requests;
};

TEST_F(Clearing, RemovesOnlyTheGivenRequest) {
  present("first");
  NCNotificationRequest* cleared = present("second");
  clear(cleared);
  EXPECT_EQ(messages(phone), Messages{"first"});
}

TEST_F(Clearing, DismissesTheBanner) {
  clear(present("first"));
  phone.wait(1);
  EXPECT_TRUE(phone.isDismissed(1));
}

TEST_F(Clearing, TwiceHasNoFurtherEffect) {
  present("first");
  NCNotificationRequest* cleared = present("second");
  clear(cleared);
  clear(cleared);
  EXPECT_EQ(messages(phone), Messages{"first"});
}

TEST_F(Clearing, IsNotUndoneByAFollowUp) {
  NCNotificationRequest* cleared = present("first");
  clear(cleared);
  phone.run("update", {{"controller", 1}, {"message", "second"}});
  EXPECT_EQ(messages(phone), Messages{});
}

TEST_F(Clearing, UnlistedRequestHasNoEffect) {
  present("first");
  springboard::NotificationDescription description;
  description.section = "com.apple.MobileSMS";
  const auto unlisted = springboard::makeRequest(description, nullptr);
  clear(unlisted);
  EXPECT_EQ(messages(phone), Messages{"first"});
}

TEST_F(Clearing, SilencingKeepsTheRequest) {
  phone.present({{"message", "first"}, {"silence", true}});
  NCNotificationRequest* request = dispatcher()->list().all().front();
  dispatcher()->execute(request->silenceAction(), request, NSDictionary::dictionary());
  EXPECT_EQ(messages(phone), Messages{"first"});
}

TEST_F(Clearing, IgnoresNilActionsAndRequests) {
  NCNotificationRequest* request = present("first");
  dispatcher()->execute(nullptr, request, NSDictionary::dictionary());
  dispatcher()->execute(request->clearAction(), nullptr, NSDictionary::dictionary());
  dispatcher()->withdraw(nullptr);
  dispatcher()->post(nullptr);
  EXPECT_EQ(messages(phone), Messages{"first"});
}

TEST(Withdrawal, RemovesBySectionByIdentifierOrAll) {
  PlainPhone phone;
  for (const char* section : {"a.b", "a.c"})
    for (const char* identifier : {"1", "2", "3"}) phone.present({{"section", section}, {"identifier", identifier}});
  EXPECT_EQ(phone.run("withdraw", {{"section", "a.b"}, {"identifier", "1"}}).at("withdrawn"), 1);
  EXPECT_EQ(phone.run("withdraw", {{"identifier", "2"}}).at("withdrawn"), 2);
  EXPECT_EQ(phone.run("withdraw", {{"section", "a.c"}}).at("withdrawn"), 2);
  EXPECT_EQ(phone.run("withdraw", {{"section", "a.c"}}).at("withdrawn"), 0);
  EXPECT_EQ(listed(phone).size(), 1U);
  EXPECT_EQ(phone.run("withdraw").at("withdrawn"), 1);
  EXPECT_EQ(listed(phone), Json::array());
}

TEST(Withdrawal, DismissesTheBanner) {
  PlainPhone phone;
  const int controller = phone.present({{"dismissAutomatically", false}});
  phone.run("withdraw");
  phone.wait(1);
  EXPECT_TRUE(phone.isDismissed(controller));
}

TEST(Withdrawal, RemovesTheBulletinThatTheServerWithdraws) {
  PlainPhone phone;
  const objc::AutoreleasePool pool;
  const auto server = objc::adopt(objc::send<BBServer*, "initWithQueue:">(objc::allocate<BBServer>(), __BBServerQueue));
  for (NSString* identifier : {"first"_ns, "second"_ns}) {
    const auto bulletin = objc::make<BBBulletin>();
    objc::send<void, "setSectionID:">(bulletin.get(), "com.apple.MobileSMS"_ns);
    objc::send<void, "setBulletinID:">(bulletin.get(), identifier);
    objc::send<void, "setMessage:">(bulletin.get(), identifier);
    objc::send<void, "publishBulletin:destinations:">(server.get(), bulletin.get(), NSUInteger{15});
  }
  foundation::drainMainQueue();
  for (NSString* identifier : {"first"_ns, "first"_ns, "unknown"_ns})
    objc::send<void, "withdrawBulletinID:">(server.get(), identifier);
  foundation::drainMainQueue();
  EXPECT_EQ(messages(phone), Messages{"second"});
}

}  // namespace
