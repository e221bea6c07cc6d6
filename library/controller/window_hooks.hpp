// Hooks in the windows and views around a banner. Main thread.
#pragma once

#include "objc/hook.hpp"
#include "platform/nc_notification_view.hpp"
#include "platform/nc_notification_view_controller.hpp"
#include "platform/ui_window.hpp"

// Always returns true, because the container must pass touches to the banner.
bool userInteractionEnabled(objc::Original<bool(NCNotificationContentContainerViewController*)> original,
                            NCNotificationContentContainerViewController* self);
// Calls the original and returns its result.
bool performAction(objc::Original<bool(NCNotificationContentContainerViewController*, NCNotificationAction*,
                                       NCNotificationRequest*, NSDictionary*)>
                       original,
                   NCNotificationContentContainerViewController* self, NCNotificationAction* action,
                   NCNotificationRequest* request, NSDictionary* userInfo);

// Always returns true, because the banner's reply field needs the keyboard.
bool canBecomeKeyWindow(objc::Original<bool(UIWindow*)> original, UIWindow* self);

// Stores the first status bar window of the process. The window is retained until the process ends.
UIWindow* statusBarWindowInit(objc::Original<UIWindow*(UIWindow*, CGRect)> original, UIWindow* self, CGRect frame);
// Returns the stored window, or nil before there is a status bar window.
UIWindow* brimSharedWindow(Class self);
