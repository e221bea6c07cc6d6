#include "objc/autorelease_pool.hpp"
#include "platform/nc_notification_view_controller.hpp"
#include "simulator/springboard/json_objects.hpp"
#include "simulator/springboard/notification_description.hpp"
#include "simulator/springboard/notification_request.hpp"
#include "tests/support/plain_phone.hpp"

namespace {

using springboard::AutomaticDismissal;
using springboard::NotificationDescription;
using test::Json;

class Requests : public testing::Test {
 protected:
  static NotificationDescription describe() {
    NotificationDescription description;
    description.section = "com.apple.MobileSMS";
    return description;
  }

  test::PlainPhone phone;
  objc::AutoreleasePool pool;
};

TEST_F(Requests, UserInfoIsReachedThroughTheSendersOwnRequest) {
  NotificationDescription description = describe();
  description.userInfo = {{"chat", {{"id", 7}}}};
  const auto request = springboard::makeRequest(description, nullptr);
  const auto* notification = objc::send<NSObject*, "userNotification">(request.get());
  const auto* inner = objc::send<NSObject*, "request">(notification);
  const auto* content = objc::send<NSObject*, "content">(inner);
  EXPECT_EQ(springboard::jsonOf(objc::send<NSDictionary*, "userInfo">(content)), description.userInfo);
}

TEST_F(Requests, ActionsAreThereAsDescribed) {
  NotificationDescription description = describe();
  const auto usual = springboard::makeRequest(description, nullptr);
  EXPECT_NE(usual->clearAction(), nullptr);
  EXPECT_EQ(usual->closeAction(), nullptr);
  EXPECT_EQ(usual->silenceAction(), nullptr);
  EXPECT_EQ(usual->supplementaryActions(), nullptr);
  description.hasClearAction = false;
  description.hasCloseAction = true;
  description.hasSilenceAction = true;
  const auto other = springboard::makeRequest(description, nullptr);
  EXPECT_EQ(other->clearAction(), nullptr);
  EXPECT_NE(other->closeAction(), nullptr);
  EXPECT_NE(other->silenceAction(), nullptr);
}

TEST_F(Requests, SupplementaryActionsAreGroupedByKeyInOrder) {
  NotificationDescription description = describe();
  description.actions = {{"a", "first", std::nullopt}, {"b", "other", std::nullopt}, {"a", std::nullopt, "second"}};
  const auto request = springboard::makeRequest(description, nullptr);
  const auto* group = objc::as<NSArray>(request->supplementaryActions()->objectForKey("a"_ns));
  ASSERT_EQ(group->count(), 2U);
  EXPECT_STREQ(static_cast<NCNotificationAction*>(group->objectAtIndex(0))->identifier()->UTF8String(), "first");
  EXPECT_EQ(static_cast<NCNotificationAction*>(group->objectAtIndex(1))->identifier(), nullptr);
  EXPECT_EQ(request->supplementaryActions()->count(), 2U);
}

TEST_F(Requests, OptionsFollowTheAutomaticDismissal) {
  NotificationDescription description = describe();
  EXPECT_TRUE(springboard::makeRequest(description, nullptr)->options()->dismissAutomatically());
  description.automaticDismissal = AutomaticDismissal::Forbidden;
  EXPECT_FALSE(springboard::makeRequest(description, nullptr)->options()->dismissAutomatically());
  description.automaticDismissal = AutomaticDismissal::Unspecified;
  EXPECT_EQ(springboard::makeRequest(description, nullptr)->options(), nullptr);
}

TEST_F(Requests, TextsThatAreNotGivenAreNil) {
  const auto request = springboard::makeRequest(describe(), nullptr);
  EXPECT_EQ(request->threadIdentifier(), nullptr);
  EXPECT_EQ(objc::state(request.get()).content->title(), nullptr);
  EXPECT_EQ(objc::state(request.get()).content->icons()->count(), 1U);
}

TEST_F(Requests, AFollowUpChangesOnlyItsTexts) {
  NotificationDescription description = describe();
  description.title = "Anna";
  description.message = "One";
  const auto request = springboard::makeRequest(description, nullptr);
  const auto updated = springboard::followUpOf(request, {.title = {}, .subtitle = {}, .message = "Two", .summary = {}});
  EXPECT_STREQ(objc::state(updated.get()).content->title()->UTF8String(), "Anna");
  EXPECT_STREQ(objc::state(updated.get()).content->message()->UTF8String(), "Two");
  EXPECT_STREQ(objc::state(request.get()).content->message()->UTF8String(), "One");
  EXPECT_EQ(updated->clearAction(), request->clearAction());
}

TEST_F(Requests, JsonValuesSurviveTheWayThroughFoundation) {
  const Json value = {{"array", {1, -2, 2.5, "x", true, false, nullptr}},
                      {"big", 18446744073709551615U},
                      {"empty", Json::object()},
                      {"text", std::string("a\0b \U0001F30A", 8)}};
  Json back = springboard::jsonOf(springboard::objectOf(value));
  // Numbers beyond the signed range read back as their bits.
  back["big"] = back["big"].get<std::uint64_t>();
  EXPECT_EQ(back, value);
}

TEST_F(Requests, ContainersNeedARequest) {
  using Container = NCNotificationContentContainerViewController;
  EXPECT_EQ(Container::withRequest(nullptr), nullptr);
  EXPECT_NE(Container::withRequest(springboard::makeRequest(describe(), nullptr)), nullptr);
}

}  // namespace
