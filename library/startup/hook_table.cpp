#include "library/startup/hook_table.hpp"

#include <cstddef>

#include "library/controller/alarm_actions.hpp"
#include "library/controller/attachment.hpp"
#include "library/controller/clear_actions.hpp"
#include "library/controller/color_mode.hpp"
#include "library/controller/commands.hpp"
#include "library/controller/dismissal.hpp"
#include "library/controller/gestures.hpp"
#include "library/controller/long_look_hooks.hpp"
#include "library/controller/notification_updates.hpp"
#include "library/controller/profile_picture.hpp"
#include "library/controller/reply_actions.hpp"
#include "library/controller/system_dismissals.hpp"
#include "library/controller/test_banner.hpp"
#include "library/controller/window_hooks.hpp"
#include "library/messages/home_screen.hpp"
#include "library/messages/messages_app.hpp"
#include "objc/hook.hpp"
#include "platform/ui_device.hpp"

namespace {

constexpr const char* contentContainer = "NCNotificationContentContainerViewController";
constexpr const char* bannerWindow = "SBNotificationBannerWindow";
constexpr const char* shortLook = "NCNotificationShortLookViewController";
constexpr const char* homeScreen = "SBHomeScreenViewController";
constexpr const char* grabber = "SBGrabberTongue";
constexpr const char* springBoard = "SpringBoard";
constexpr const char* notificationController = "NCNotificationViewController";
constexpr const char* lockScreen = "SBLockScreenManager";
constexpr const char* conversationList = "CKConversationListController";
constexpr const char* statusBarWindow = "UIStatusBarWindow";
constexpr const char* bulletinServer = "BBServer";

constexpr std::size_t maxMethods = 80;
objc::InstalledMethod installed[maxMethods];
std::size_t installedCount;

const char* notificationViewClass() {
  return systemVersionIsBelow("12.0"_ns) ? "_NCNotificationViewControllerView" : "NCNotificationViewControllerView";
}

}  // namespace

// The names of the added methods and properties, including their spelling, are part of the library's public interface.
// Do not change them.
// clang-format off
void installHookTable(objc::HookFunction* hookFunction) {
  const char* notificationView = notificationViewClass();
  const objc::Row table[] = {
      objc::hook<"didMoveToSuperview", &notificationViewDidMove>(notificationView),
      objc::hook<"userInteractionEnabled", &userInteractionEnabled>(contentContainer),
      objc::hook<"performAction:forNotification:withUserInfo:", &performAction>(contentContainer),
      objc::hook<"_canBecomeKeyWindow", &canBecomeKeyWindow>(bannerWindow),
      objc::hook<"viewDidLoad", &bannerControllerViewDidLoad>(shortLook),
      objc::hook<"dealloc", &bannerControllerDealloc>(shortLook),
      objc::hook<"traitCollectionDidChange:", &traitCollectionDidChange>(shortLook),
      objc::add<"receivedBrimNotification:", &receivedBrimNotification>(shortLook),
      objc::add<"updateProfilePictureWithHeader:withBody:forView:", &updateProfilePicture>(shortLook),
      objc::add<"forceDismissNotificationForView:", &forceDismissNotification>(shortLook),
      objc::add<"attemptDismissNotificationForView:forced:", &attemptDismissNotification>(shortLook),
      objc::add<"attemptDelete:", &attemptDelete>(shortLook),
      objc::add<"shouldAutoDismiss", &shouldAutoDismiss>(shortLook),
      objc::add<"attemptSilence:", &attemptSilence>(shortLook),
      objc::add<"getAlarmActions", &getAlarmActions>(shortLook),
      objc::add<"isAlarm", &isAlarm>(shortLook),
      objc::add<"getBundleId", &getBundleId>(shortLook),
      objc::add<"canReply", &canReply>(shortLook),
      objc::add<"getReplyAction", &getReplyAction>(shortLook),
      objc::add<"executeOnAlarmForView:action:", &executeOnAlarm>(shortLook),
      objc::add<"sendReplyForView:withText:", &sendReply>(shortLook),
      objc::add<"sendMessageReplyForView:withText:", &sendMessageReply>(shortLook),
      objc::hook<"_handleTapOnView:", &handleTap>(shortLook),
      objc::add<"panGestureHandler:", &panGestureHandler>(shortLook),
      objc::add<"markMessagesAsRead", &markMessagesAsRead>(shortLook),
      objc::add<"dismissGestureHandler:forView:animated:completion:", &moveBanner>(shortLook),
      objc::add<"dismissGestureHandler:forView:animated:duration:completion:", &moveBannerWithDuration>(shortLook),
      objc::add<"expandGestureHandler:forView:animated:completion:", &expandBanner>(shortLook),
      objc::add<"preDismiss", &preDismiss>(shortLook),
      objc::hook<"dismissViewControllerWithTransition:completion:", &dismissViewController>(shortLook),
      objc::hook<"_presentLongLookForScrollAnimated:completion:", &presentLongLookForScroll>(shortLook),
      objc::hook<"_presentLongLookViaClickPresentationInteraction:", &presentLongLookViaClick>(shortLook),
      objc::property<"brimView", BrimContainer*>(shortLook),
      objc::property<"hasDismissed", bool>(shortLook),
      objc::property<"autoDimissTriggered", bool>(shortLook),
      objc::property<"isDismissing", bool>(shortLook),
      objc::property<"wasExternallyDismissed", bool>(shortLook),
      objc::property<"dismissCalled", bool>(shortLook),
      objc::hook<"viewDidLoad", &homeScreenViewDidLoad>(homeScreen),
      objc::hook<"dealloc", &homeScreenDealloc>(homeScreen),
      objc::add<"receivedBannerTest", &receivedBannerTest>(homeScreen),
      objc::hook<"dismissWithStyle:animated:", &grabberDismiss>(grabber),
      objc::hook<"_handlePhysicalButtonEvent:", &handlePhysicalButton>(springBoard),
      objc::add<"isPartOfBanner", &isPartOfBanner>(notificationController),
      objc::hook<"presentLongLookAnimated:trigger:completion:", &presentLongLook>(notificationController),
      objc::hook<"presentViewController:animated:completion:", &presentViewController>(notificationController),
      objc::add<"attemptUpdateReply:", &attemptUpdateReply>(notificationController),
      objc::add<"attemptDelete", &executeClearAction>(notificationController),
      objc::property<"brimIdentifier", NSString*>(notificationController),
      objc::hook<"_activateLockScreenAnimated:animationProvider:automatically:inScreenOffMode:dimInAnimation:dismissNotificationCenter:completion:", &activateLockScreen>(lockScreen),
      objc::hook<"viewDidLoad", &conversationListViewDidLoad>(conversationList),
      objc::hook<"dealloc", &conversationListDealloc>(conversationList),
      objc::add<"markAsRead:", &markAsRead>(conversationList),
      objc::add<"receivedMessageContacts:", &receivedMessageContacts>(conversationList),
      objc::property<"brimIdentifier", NSString*>(conversationList),
      objc::hook<"initWithFrame:", &statusBarWindowInit>(statusBarWindow),
      objc::add<"brimSharedWindow", &brimSharedWindow, objc::Level::Class>(statusBarWindow),
      objc::hook<"initWithQueue:", &serverInit>(bulletinServer),
      objc::hook<"initWithQueue:dataProviderManager:syncService:dismissalSyncCache:observerListener:utilitiesListener:conduitListener:systemStateListener:settingsListener:", &serverLongInit>(bulletinServer),
      objc::hook<"dealloc", &serverDealloc>(bulletinServer),
  };
  // clang-format on
  for (const objc::Row& row : table)
    for (std::size_t index = 0; index < row.count; ++index)
      installed[installedCount++] = objc::install(row.methods[index], hookFunction);
}

std::span<const objc::InstalledMethod> installedMethods() { return {installed, installedCount}; }
