// The methods that the library hooks or adds, in the order of installation. They are the same on the phone and in the
// simulator. A property has two rows, one for its getter and one for its setter. The class of the first row has this
// name from system version 12.0 on; in earlier versions, its name begins with an underscore.
#pragma once

namespace test {

struct HookRow {
  const char* className;
  const char* selector;
  const char* kind;  // "hook" or "add"
  const char* encoding;
};

inline constexpr const char* shortLook = "NCNotificationShortLookViewController";
inline constexpr const char* container = "NCNotificationContentContainerViewController";
inline constexpr const char* notification = "NCNotificationViewController";
inline constexpr const char* conversations = "CKConversationListController";

inline constexpr HookRow hookRows[] = {
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

}  // namespace test
