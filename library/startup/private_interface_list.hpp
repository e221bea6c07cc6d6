// The platform's private interfaces that the library uses: one row for each interface, as an X-macro. Define
// BRIM_PRIVATE_INTERFACE(kind, className, name, since, until, requirement, effect) before you include this file. The
// file undefines the macro, so it can be included several times.
//
//   kind         an InterfaceKind. For a class, the name is empty; for a symbol, the class name is empty.
//   since until  the range of system versions that are known to have the interface: from `since` on, and before `until`
//                unless that is empty
//   requirement  a Requirement: whether the library stays inactive without the interface
//   effect       what the user notices on a system without the interface; for documentation only
#if !defined(BRIM_PRIVATE_INTERFACE)
#error "Define BRIM_PRIVATE_INTERFACE before this header is included."
#endif

// clang-format off
#define BRIM_START(kind, className, name) BRIM_PRIVATE_INTERFACE(kind, className, name, "11.2", "", Start, "The system's banners appear; the library logs why.")
#define BRIM_BANNER(kind, className, name) BRIM_PRIVATE_INTERFACE(kind, className, name, "11.2", "", Banner, "The system's banners appear; the library logs why.")
#define BRIM_OPTIONAL(kind, className, name, effect) BRIM_PRIVATE_INTERFACE(kind, className, name, "11.2", "", None, effect)

// Preferences and code injection, from other packages.
BRIM_START(PlatformClass, "HBPreferences", "")
BRIM_START(InstanceMethod, "HBPreferences", "initWithIdentifier:")
BRIM_START(InstanceMethod, "HBPreferences", "registerBool:default:forKey:")
BRIM_START(InstanceMethod, "HBPreferences", "registerInteger:default:forKey:")
BRIM_START(Symbol, "", "MSHookMessageEx")

// A banner: its window, its controller, its texts and its actions.
BRIM_PRIVATE_INTERFACE(PlatformClass, "SBNotificationBannerWindow", "", "11.2", "", Banner, "The system's banners appear; the library logs why. Systems from 14.0 lack this class.")
BRIM_PRIVATE_INTERFACE(PlatformClass, "_NCNotificationViewControllerView", "", "11.2", "12.0", Banner, "The system's banners appear; the library logs why.")
BRIM_PRIVATE_INTERFACE(PlatformClass, "NCNotificationViewControllerView", "", "12.0", "", Banner, "The system's banners appear; the library logs why.")
BRIM_PRIVATE_INTERFACE(InstanceMethod, "_NCNotificationViewControllerView", "contentView", "11.2", "12.0", Banner, "The system's banners appear; the library logs why.")
BRIM_PRIVATE_INTERFACE(InstanceMethod, "NCNotificationViewControllerView", "contentView", "12.0", "", Banner, "The system's banners appear; the library logs why.")
BRIM_BANNER(PlatformClass, "NCNotificationViewController", "")
BRIM_BANNER(PlatformClass, "NCNotificationShortLookViewController", "")
BRIM_BANNER(InstanceMethod, "NCNotificationShortLookViewController", "_handleTapOnView:")
BRIM_BANNER(InstanceMethod, "NCNotificationShortLookViewController", "dismissViewControllerWithTransition:completion:")
BRIM_BANNER(InstanceMethod, "NCNotificationViewController", "notificationRequest")
BRIM_BANNER(InstanceMethod, "NCNotificationViewController", "_askDelegateToExecuteAction:withParameters:animated:")
BRIM_BANNER(InstanceMethod, "NCNotificationShortLookView", "primaryText")
BRIM_BANNER(InstanceMethod, "NCNotificationShortLookView", "primarySubtitleText")
BRIM_BANNER(InstanceMethod, "NCNotificationShortLookView", "secondaryText")
BRIM_BANNER(InstanceMethod, "NCNotificationRequest", "sectionIdentifier")
BRIM_BANNER(InstanceMethod, "NCNotificationRequest", "options")
BRIM_BANNER(InstanceMethod, "NCNotificationRequest", "clearAction")
BRIM_BANNER(InstanceMethod, "NCNotificationRequest", "closeAction")
BRIM_BANNER(InstanceMethod, "NCNotificationRequest", "supplementaryActions")
BRIM_BANNER(InstanceMethod, "NCNotificationOptions", "dismissAutomatically")

BRIM_PRIVATE_INTERFACE(InstanceMethod, "NCNotificationShortLookView", "summaryText", "12.0", "", None, "A notification that has only a summary has no body.")
BRIM_OPTIONAL(InstanceMethod, "NCNotificationShortLookView", "icons", "A banner has no picture if the platform has no icon of the application.")
BRIM_OPTIONAL(ClassMethod, "UIImage", "_applicationIconImageForBundleIdentifier:format:", "A banner has the picture of the notification instead of the application's icon.")
BRIM_OPTIONAL(InstanceMethod, "NSData", "ic_md5", "None: the library computes the digest itself.")
BRIM_OPTIONAL(InstanceMethod, "NCNotificationRequest", "silenceAction", "Silencing a notification does nothing.")
BRIM_OPTIONAL(InstanceMethod, "NCNotificationRequest", "threadIdentifier", "Replies to Messages conversations are not sent, and WhatsApp senders have no photo.")
BRIM_OPTIONAL(InstanceMethod, "NCNotificationRequest", "userNotification", "Senders have no photo if it depends on the notification's own data.")
BRIM_OPTIONAL(InstanceMethod, "NCNotificationAction", "identifier", "Only Messages banners have a Reply button, and alarms have no Snooze button.")
BRIM_OPTIONAL(PlatformClass, "NCNotificationContentContainerViewController", "", "None: the actions of every notification are read.")
BRIM_OPTIONAL(InstanceMethod, "NCNotificationContentContainerViewController", "initWithNotificationRequest:", "None: the actions of every notification are read.")
BRIM_OPTIONAL(InstanceMethod, "NCNotificationContentContainerViewController", "userInteractionEnabled", "None, unless the container ignores touches.")
BRIM_OPTIONAL(InstanceMethod, "NCNotificationContentContainerViewController", "performAction:forNotification:withUserInfo:", "None.")
BRIM_OPTIONAL(InstanceMethod, "SBNotificationBannerWindow", "_canBecomeKeyWindow", "Banners have no Reply button, because their window cannot get the keyboard.")
BRIM_OPTIONAL(InstanceMethod, "NCNotificationShortLookViewController", "_presentLongLookForScrollAnimated:completion:", "A long look can appear over a banner.")
BRIM_OPTIONAL(InstanceMethod, "NCNotificationShortLookViewController", "_presentLongLookViaClickPresentationInteraction:", "A long look can appear over a banner.")
BRIM_OPTIONAL(InstanceMethod, "NCNotificationViewController", "presentLongLookAnimated:trigger:completion:", "A long look can appear over a banner.")
BRIM_OPTIONAL(InstanceMethod, "UILabel", "_measuredNumberOfLines", "Every dismissal takes 0.7 seconds, regardless of the number of lines.")
BRIM_OPTIONAL(InstanceMethod, "CALayer", "setContinuousCorners:", "Corners are circular.")
BRIM_OPTIONAL(InstanceVariable, "UIView", "_gestureRecognizers", "None: the recognizers are read from the public property.")
BRIM_OPTIONAL(InstanceMethod, "UIDevice", "_feedbackSupportLevel", "Feedback is the plain vibration.")

// The windows and controllers around a banner.
BRIM_OPTIONAL(PlatformClass, "UIStatusBarWindow", "", "None.")
BRIM_OPTIONAL(PlatformClass, "SBGrabberTongue", "", "The grabber does not dismiss a banner that must stay.")
BRIM_OPTIONAL(InstanceMethod, "SBGrabberTongue", "dismissWithStyle:animated:", "The grabber does not dismiss a banner that must stay.")
BRIM_OPTIONAL(PlatformClass, "SpringBoard", "", "The home button does not dismiss a banner that must stay.")
BRIM_OPTIONAL(InstanceMethod, "SpringBoard", "_handlePhysicalButtonEvent:", "The home button does not dismiss a banner that must stay.")
BRIM_OPTIONAL(PlatformClass, "SBLockScreenManager", "", "A banner that must stay is still on screen after the phone was locked.")
BRIM_OPTIONAL(InstanceMethod, "SBLockScreenManager", "_activateLockScreenAnimated:animationProvider:automatically:inScreenOffMode:dimInAnimation:dismissNotificationCenter:completion:", "A banner that must stay is still on screen after the phone was locked.")

// The test banner.
BRIM_OPTIONAL(PlatformClass, "SBHomeScreenViewController", "", "The settings pane cannot show a test banner.")
BRIM_OPTIONAL(PlatformClass, "NSDistributedNotificationCenter", "", "No test banner appears, and replies to Messages conversations are not sent.")
BRIM_OPTIONAL(PlatformClass, "BBServer", "", "No test banner appears; the phone only vibrates.")
BRIM_OPTIONAL(InstanceMethod, "BBServer", "initWithQueue:", "No test banner appears if the platform has no other initializer; the phone only vibrates.")
BRIM_OPTIONAL(InstanceMethod, "BBServer", "initWithQueue:dataProviderManager:syncService:dismissalSyncCache:observerListener:utilitiesListener:conduitListener:systemStateListener:settingsListener:", "No test banner appears if the platform has no other initializer; the phone only vibrates.")
BRIM_OPTIONAL(InstanceMethod, "BBServer", "publishBulletin:destinations:", "No test banner appears; the phone only vibrates.")
BRIM_OPTIONAL(Symbol, "", "__BBServerQueue", "No test banner appears; the phone only vibrates.")
BRIM_OPTIONAL(PlatformClass, "BBBulletin", "", "No test banner appears; the phone only vibrates.")
BRIM_OPTIONAL(InstanceMethod, "BBBulletin", "setTitle:", "The test banner lacks this value.")
BRIM_OPTIONAL(InstanceMethod, "BBBulletin", "setMessage:", "The test banner lacks this value.")
BRIM_OPTIONAL(InstanceMethod, "BBBulletin", "setSectionID:", "The test banner lacks this value.")
BRIM_OPTIONAL(InstanceMethod, "BBBulletin", "setBulletinID:", "The test banner lacks this value.")
BRIM_OPTIONAL(InstanceMethod, "BBBulletin", "setRecordID:", "The test banner lacks this value.")
BRIM_OPTIONAL(InstanceMethod, "BBBulletin", "setPublisherBulletinID:", "The test banner lacks this value.")
BRIM_OPTIONAL(InstanceMethod, "BBBulletin", "setDate:", "The test banner lacks this value.")
BRIM_OPTIONAL(InstanceMethod, "BBBulletin", "setDefaultAction:", "The test banner lacks this value.")
BRIM_OPTIONAL(InstanceMethod, "BBBulletin", "setClearable:", "The test banner lacks this value.")
BRIM_OPTIONAL(InstanceMethod, "BBBulletin", "setShowsMessagePreview:", "The test banner lacks this value.")
BRIM_OPTIONAL(InstanceMethod, "BBBulletin", "setPublicationDate:", "The test banner lacks this value.")
BRIM_OPTIONAL(InstanceMethod, "BBBulletin", "setLastInterruptDate:", "The test banner lacks this value.")
BRIM_OPTIONAL(PlatformClass, "BBAction", "", "A tap on the test banner opens no application.")
BRIM_OPTIONAL(ClassMethod, "BBAction", "actionWithLaunchBundleID:callblock:", "A tap on the test banner opens no application.")

// Replies to Messages conversations.
BRIM_OPTIONAL(InstanceMethod, "UIApplication", "launchApplicationWithIdentifier:suspended:", "Messages banners have no Reply button, and conversations are not marked as read.")
BRIM_OPTIONAL(PlatformClass, "CKConversationListController", "", "Replies and read receipts are not sent.")
BRIM_OPTIONAL(PlatformClass, "CKConversationList", "", "Replies and read receipts are not sent.")
BRIM_OPTIONAL(ClassMethod, "CKConversationList", "sharedConversationList", "Replies and read receipts are not sent.")
BRIM_OPTIONAL(InstanceMethod, "CKConversationList", "conversations", "Replies and read receipts are not sent.")
BRIM_OPTIONAL(InstanceMethod, "CKConversation", "chat", "Replies and read receipts are not sent.")
BRIM_OPTIONAL(InstanceMethod, "IMChat", "guid", "Replies and read receipts are not sent.")
BRIM_OPTIONAL(PlatformClass, "IMChatRegistry", "", "Replies and read receipts are not sent.")
BRIM_OPTIONAL(ClassMethod, "IMChatRegistry", "sharedInstance", "Replies and read receipts are not sent.")
BRIM_OPTIONAL(InstanceMethod, "IMChatRegistry", "_chat:sendMessage:", "Replies are not sent.")
BRIM_OPTIONAL(InstanceMethod, "IMChatRegistry", "_chat_sendReadReceiptForAllMessages:", "Read receipts are not sent.")
BRIM_OPTIONAL(PlatformClass, "IMMessage", "", "Replies are not sent.")
BRIM_OPTIONAL(ClassMethod, "IMMessage", "instantMessageWithText:flags:", "Replies are not sent.")
// clang-format on

#undef BRIM_START
#undef BRIM_BANNER
#undef BRIM_OPTIONAL
#undef BRIM_PRIVATE_INTERFACE
