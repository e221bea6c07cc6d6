#include <gtest/gtest.h>

#include "tests/library/phone.hpp"

namespace {

using test::Json;
using test::Phone;

Phone onVersion(const std::string& version) {
  test::Setup setup;
  setup.options.systemVersion = version;
  return Phone(setup);
}

Json rows(Phone& phone) { return phone.run({{"do", "hooks"}}).at("rows"); }

// One method of the table as the phone's loader would see it.
struct Expected {
  const char* className;
  const char* selector;
  const char* kind;
  const char* encoding;
};

constexpr const char* shortLook = "NCNotificationShortLookViewController";
constexpr const char* container = "NCNotificationContentContainerViewController";
constexpr const char* notification = "NCNotificationViewController";
constexpr const char* conversations = "CKConversationListController";

constexpr Expected table[] = {
    {"NCNotificationViewControllerView", "didMoveToSuperview", "hook", "v@:"},
    {container, "userInteractionEnabled", "hook", "B@:"},
    {container, "performAction:forNotification:withUserInfo:", "hook", "B@:@@@"},
    {"SBNotificationBannerWindow", "_canBecomeKeyWindow", "hook", "B@:"},
    {shortLook, "viewDidLoad", "hook", "v@:"},
    {shortLook, "dealloc", "hook", "v@:"},
    {shortLook, "traitCollectionDidChange:", "hook", "v@:@"},
    {shortLook, "receivedBrimNotification:", "add", "v@:@"},
    {shortLook, "updateProfilePictureWithHeader:withBody:forView:", "add", "v@:@@@"},
    {shortLook, "forceDismissNotificationForView:", "add", "v@:@"},
    {shortLook, "attemptDismissNotificationForView:forced:", "add", "v@:@B"},
    {shortLook, "attemptDelete:", "add", "v@:@"},
    {shortLook, "shouldAutoDismiss", "add", "B@:"},
    {shortLook, "attemptSilence:", "add", "v@:@"},
    {shortLook, "getAlarmActions", "add", "@@:"},
    {shortLook, "isAlarm", "add", "B@:"},
    {shortLook, "getBundleId", "add", "@@:"},
    {shortLook, "canReply", "add", "B@:"},
    {shortLook, "getReplyAction", "add", "@@:"},
    {shortLook, "executeOnAlarmForView:action:", "add", "v@:@Q"},
    {shortLook, "sendReplyForView:withText:", "add", "v@:@@"},
    {shortLook, "sendMessageReplyForView:withText:", "add", "v@:@@"},
    {shortLook, "_handleTapOnView:", "hook", "v@:@"},
    {shortLook, "panGestureHandler:", "add", "v@:@"},
    {shortLook, "markMessagesAsRead", "add", "v@:"},
    {shortLook, "dismissGestureHandler:forView:animated:completion:", "add", "v@:d@B@?"},
    {shortLook, "dismissGestureHandler:forView:animated:duration:completion:", "add", "v@:d@Bd@?"},
    {shortLook, "expandGestureHandler:forView:animated:completion:", "add", "v@:d@B@?"},
    {shortLook, "preDismiss", "add", "v@:"},
    {shortLook, "dismissViewControllerWithTransition:completion:", "hook", "v@:q@?"},
    {shortLook, "_presentLongLookForScrollAnimated:completion:", "hook", "v@:B@?"},
    {shortLook, "_presentLongLookViaClickPresentationInteraction:", "hook", "v@:@"},
    {shortLook, "brimView", "add", "@@:"},
    {shortLook, "setBrimView:", "add", "v@:@"},
    {shortLook, "hasDismissed", "add", "B@:"},
    {shortLook, "setHasDismissed:", "add", "v@:B"},
    {shortLook, "autoDimissTriggered", "add", "B@:"},
    {shortLook, "setAutoDimissTriggered:", "add", "v@:B"},
    {shortLook, "isDismissing", "add", "B@:"},
    {shortLook, "setIsDismissing:", "add", "v@:B"},
    {shortLook, "wasExternallyDismissed", "add", "B@:"},
    {shortLook, "setWasExternallyDismissed:", "add", "v@:B"},
    {shortLook, "dismissCalled", "add", "B@:"},
    {shortLook, "setDismissCalled:", "add", "v@:B"},
    {"SBHomeScreenViewController", "viewDidLoad", "hook", "v@:"},
    {"SBHomeScreenViewController", "dealloc", "hook", "v@:"},
    {"SBHomeScreenViewController", "receivedBannerTest", "add", "v@:"},
    {"SBGrabberTongue", "dismissWithStyle:animated:", "hook", "B@:qB"},
    {"SpringBoard", "_handlePhysicalButtonEvent:", "hook", "B@:@"},
    {notification, "isPartOfBanner", "add", "B@:"},
    {notification, "presentLongLookAnimated:trigger:completion:", "hook", "v@:Bq@?"},
    {notification, "presentViewController:animated:completion:", "hook", "v@:@B@?"},
    {notification, "attemptUpdateReply:", "add", "v@:@"},
    {notification, "attemptDelete", "add", "v@:"},
    {notification, "brimIdentifier", "add", "@@:"},
    {notification, "setBrimIdentifier:", "add", "v@:@"},
    {"SBLockScreenManager",
     "_activateLockScreenAnimated:animationProvider:automatically:inScreenOffMode:dimInAnimation:"
     "dismissNotificationCenter:completion:",
     "hook", "v@:B@BBBB@?"},
    {conversations, "viewDidLoad", "hook", "v@:"},
    {conversations, "dealloc", "hook", "v@:"},
    {conversations, "markAsRead:", "add", "v@:@"},
    {conversations, "receivedMessageContacts:", "add", "v@:@"},
    {conversations, "brimIdentifier", "add", "@@:"},
    {conversations, "setBrimIdentifier:", "add", "v@:@"},
    {"UIStatusBarWindow", "initWithFrame:", "hook", "@@:{CGRect={CGPoint=dd}{CGSize=dd}}"},
    {"UIStatusBarWindow", "brimSharedWindow", "add", "@@:"},
    {"BBServer", "initWithQueue:", "hook", "@@:@"},
    {"BBServer",
     "initWithQueue:dataProviderManager:syncService:dismissalSyncCache:observerListener:utilitiesListener:"
     "conduitListener:systemStateListener:settingsListener:",
     "hook", "@@:@@@@@@@@@"},
    {"BBServer", "dealloc", "hook", "v@:"},
};

TEST(StartUp, InstallsTheWholeTableInOrder) {
  Phone phone;
  const Json installed = rows(phone);
  ASSERT_EQ(installed.size(), std::size(table));
  for (std::size_t index = 0; index < std::size(table); ++index) {
    SCOPED_TRACE(index);
    EXPECT_EQ(installed[index].at("class"), table[index].className);
    EXPECT_EQ(installed[index].at("selector"), table[index].selector);
    EXPECT_EQ(installed[index].at("kind"), table[index].kind);
    EXPECT_EQ(installed[index].at("encoding"), table[index].encoding);
  }
}

TEST(StartUp, OnlyTheMessagesRowsAreInertInTheHomeScreen) {
  Phone phone;
  for (const Json& row : rows(phone))
    EXPECT_EQ(row.at("effective"), row.at("class") != "CKConversationListController") << row;
}

class NotificationViewClass : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(NotificationViewClass, IsThatOfTheSystemVersion) {
  Phone phone = onVersion(GetParam().first);
  const Json first = rows(phone).at(0);
  EXPECT_EQ(first.at("class"), GetParam().second);
  EXPECT_TRUE(first.at("effective"));
  EXPECT_FALSE(phone.banner(phone.present({{"title", "T"}})).is_null());
}

INSTANTIATE_TEST_SUITE_P(Versions, NotificationViewClass,
                         testing::Values(std::pair("11.2", "_NCNotificationViewControllerView"),
                                         std::pair("11.4", "_NCNotificationViewControllerView"),
                                         std::pair("12.0", "NCNotificationViewControllerView"),
                                         std::pair("12.4", "NCNotificationViewControllerView"),
                                         std::pair("13.5", "NCNotificationViewControllerView")));

TEST(StartUp, SwitchedOffNothingIsInstalledAndThePlatformsBannerStays) {
  test::Setup setup;
  setup.settings = {{"enabled", false}};
  Phone phone(setup);
  EXPECT_TRUE(rows(phone).empty());
  const int controller = phone.present({{"title", "T"}});
  EXPECT_TRUE(phone.banner(controller).is_null());
  phone.set("enabled", true);
  EXPECT_TRUE(phone.banner(phone.present({{"title", "T"}})).is_null());
}

TEST(StartUp, SwitchingOffLaterKeepsTheBannersUntilTheNextStart) {
  Phone phone;
  phone.set("enabled", false);
  EXPECT_FALSE(phone.banner(phone.present({{"title", "T"}})).is_null());
}

}  // namespace
