// Takes over a presented notification: the platform's content makes room for a banner built from the same notification.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"
#include "platform/ui_window.hpp"

// The notification view has arrived in a superview, or left one.
void notificationViewDidMove(objc::Original<void(NCNotificationViewControllerView*)> original,
                             NCNotificationViewControllerView* self);

// Whether the latest banner that was built is the controller's. It is the one that later banners wait for.
bool hasNewestBanner(const BannerController* controller);

// The container must pass touches to the banner.
bool userInteractionEnabled(objc::Original<bool(NCNotificationContentContainerViewController*)> original,
                            NCNotificationContentContainerViewController* self);
bool performAction(objc::Original<bool(NCNotificationContentContainerViewController*, NCNotificationAction*,
                                       NCNotificationRequest*, NSDictionary*)>
                       original,
                   NCNotificationContentContainerViewController* self, NCNotificationAction* action,
                   NCNotificationRequest* request, NSDictionary* userInfo);

// The banner's reply field needs the keyboard.
bool canBecomeKeyWindow(objc::Original<bool(UIWindow*)> original, UIWindow* self);

// Keeps the colours in step with the system's appearance.
void traitCollectionDidChange(objc::Original<void(BannerController*, UITraitCollection*)> original,
                              BannerController* self, UITraitCollection* previous);
