// Hooks of the windows and views around a banner. Main thread.
#pragma once

#include "objc/hook.hpp"
#include "platform/nc_notification_view.hpp"
#include "platform/nc_notification_view_controller.hpp"
#include "platform/ui_window.hpp"

// Always true, because the container must pass touches to the banner.
bool userInteractionEnabled(objc::Original<bool(NCNotificationContentContainerViewController*)> original,
                            NCNotificationContentContainerViewController* self);
// Calls the original.
bool performAction(objc::Original<bool(NCNotificationContentContainerViewController*, NCNotificationAction*,
                                       NCNotificationRequest*, NSDictionary*)>
                       original,
                   NCNotificationContentContainerViewController* self, NCNotificationAction* action,
                   NCNotificationRequest* request, NSDictionary* userInfo);

// Always true, because the banner's reply field needs the keyboard.
bool canBecomeKeyWindow(objc::Original<bool(UIWindow*)> original, UIWindow* self);

// Stores the first status bar window of the process, until the process ends.
UIWindow* statusBarWindowInit(objc::Original<UIWindow*(UIWindow*, CGRect)> original, UIWindow* self, CGRect frame);
// The stored window; nil before the first one exists.
UIWindow* brimSharedWindow(Class self);
