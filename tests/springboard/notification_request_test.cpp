// Tests of notification requests that the simulator makes from a description.
#include "simulator/springboard/services/notification_request.hpp"

#include "objc/autorelease_pool.hpp"
#include "platform/nc_notification_view_controller.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/services/notification_description.hpp"
#include "tests/support/plain_phone.hpp"

namespace {

using springboard::AutomaticDismissal;
using springboard::NotificationDescription;
using test::Json;

class NotificationRequests : public testing::Test {
 protected:
  static NotificationDescription describe() {
    NotificationDescription description;
    description.section = "com.apple.MobileSMS";
    return description;
  }

  test::PlainPhone phone;
  objc::AutoreleasePool pool;
};

TEST_F(NotificationRequests, UserInfoIsAccessibleThroughTheUserNotification) {
  NotificationDescription description = describe();
  description.userInfo = {{"chat", {{"id", 7}}}};
  const auto request = springboard::makeRequest(description, nullptr);
  const auto* notification = objc::send<NSObject*, "userNotification">(request.get());
  const auto* innerRequest = objc::send<NSObject*, "request">(notification);
  const auto* content = objc::send<NSObject*, "content">(innerRequest);
  EXPECT_EQ(base::jsonOf(objc::send<NSDictionary*, "userInfo">(content)), description.userInfo);
}

TEST_F(NotificationRequests, HaveTheActionsOfTheDescription) {
  NotificationDescription description = describe();
  const auto defaultRequest = springboard::makeRequest(description, nullptr);
  EXPECT_NE(defaultRequest->clearAction(), nullptr);
  EXPECT_EQ(defaultRequest->closeAction(), nullptr);
  EXPECT_EQ(defaultRequest->silenceAction(), nullptr);
  EXPECT_EQ(defaultRequest->supplementaryActions(), nullptr);
  description.hasClearAction = false;
  description.hasCloseAction = true;
  description.hasSilenceAction = true;
  const auto other = springboard::makeRequest(description, nullptr);
  EXPECT_EQ(other->clearAction(), nullptr);
  EXPECT_NE(other->closeAction(), nullptr);
  EXPECT_NE(other->silenceAction(), nullptr);
}

TEST_F(NotificationRequests, SupplementaryActionsAreGroupedByKeyInOrder) {
  NotificationDescription description = describe();
  description.actions = {{"a", "first", std::nullopt}, {"b", "other", std::nullopt}, {"a", std::nullopt, "second"}};
  const auto request = springboard::makeRequest(description, nullptr);
  const auto* group = objc::as<NSArray>(request->supplementaryActions()->objectForKey("a"_ns));
  ASSERT_EQ(group->count(), 2U);
  EXPECT_STREQ(static_cast<NCNotificationAction*>(group->objectAtIndex(0))->identifier()->UTF8String(), "first");
  EXPECT_EQ(static_cast<NCNotificationAction*>(group->objectAtIndex(1))->identifier(), nullptr);
  EXPECT_EQ(request->supplementaryActions()->count(), 2U);
}

TEST_F(NotificationRequests, OptionsDependOnAutomaticDismissal) {
  NotificationDescription description = describe();
  EXPECT_TRUE(springboard::makeRequest(description, nullptr)->options()->dismissAutomatically());
  description.automaticDismissal = AutomaticDismissal::Forbidden;
  EXPECT_FALSE(springboard::makeRequest(description, nullptr)->options()->dismissAutomatically());
  description.automaticDismissal = AutomaticDismissal::Unspecified;
  EXPECT_EQ(springboard::makeRequest(description, nullptr)->options(), nullptr);
}

TEST_F(NotificationRequests, MissingTextsAreNil) {
  const auto request = springboard::makeRequest(describe(), nullptr);
  EXPECT_EQ(request->threadIdentifier(), nullptr);
  EXPECT_EQ(objc::state(request.get()).content->title(), nullptr);
  EXPECT_EQ(objc::state(request.get()).content->icons()->count(), 1U);
}

TEST_F(NotificationRequests, FollowUpChangesOnlyTheGivenTexts) {
  NotificationDescription description = describe();
  description.title = "Anna";
  description.message = "One";
  const auto request = springboard::makeRequest(description, nullptr);
  const auto updated =
      springboard::makeFollowUp(request, {.title = {}, .subtitle = {}, .message = "Two", .summary = {}});
  EXPECT_STREQ(objc::state(updated.get()).content->title()->UTF8String(), "Anna");
  EXPECT_STREQ(objc::state(updated.get()).content->message()->UTF8String(), "Two");
  EXPECT_STREQ(objc::state(request.get()).content->message()->UTF8String(), "One");
  EXPECT_EQ(updated->clearAction(), request->clearAction());
}

TEST_F(NotificationRequests, JsonValuesAreUnchangedByConversionToFoundation) {
  const Json value = {{"array", {1, -2, 2.5, "x", true, false, nullptr}},
                      {"big", 18446744073709551615U},
                      {"empty", Json::object()},
                      {"text", std::string("a\0b \U0001F30A", 8)}};
  Json converted = base::jsonOf(base::objectOf(value));
  // Numbers above the signed range are read back as negative numbers with the same bits.
  converted["big"] = converted["big"].get<std::uint64_t>();
  EXPECT_EQ(converted, value);
}

TEST_F(NotificationRequests, ContainersAreNotCreatedWithoutARequest) {
  using Container = NCNotificationContentContainerViewController;
  EXPECT_EQ(Container::withRequest(nullptr), nullptr);
  EXPECT_NE(Container::withRequest(springboard::makeRequest(describe(), nullptr)), nullptr);
}

}  // namespace
