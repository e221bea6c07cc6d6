// The command channel: one broadcast by which banners, and what must move them, speak to all banners of the process.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"
#include "platform/ns_notification_center.hpp"

enum class Command { Dismiss, DismissWithoutAnimation };

// Reaches every listening controller before it returns.
void post(Command command);
// Tells all banners that the one named has been attached, so that the older ones go.
void postReplacement(NSString* identifier);

// Controllers listen from their viewDidLoad to their dealloc.
void bannerControllerViewDidLoad(objc::Original<void(BannerController*)> original, BannerController* self);
void bannerControllerDealloc(objc::Original<void(BannerController*)> original, BannerController* self);
void receivedBrimNotification(BannerController* self, NSNotification* notification);

// The text of a notification that would have been presented over a banner that must stay.
void attemptUpdateReply(NotificationController* self, NCNotificationViewControllerView* view);

// The grabber's gesture belongs to the banner while one must stay.
bool grabberDismiss(objc::Original<bool(NSObject*, NSInteger, bool)> original, NSObject* self, NSInteger style,
                    bool animated);
void activateLockScreen(
    objc::Original<void(NSObject*, bool, NSObject*, bool, bool, bool, bool, objc::Block<void()>*)> original,
    NSObject* self, bool animated, NSObject* animationProvider, bool automatically, bool inScreenOffMode,
    bool dimInAnimation, bool dismissNotificationCenter, objc::Block<void()>* completion);
