// The window that banners come in: above all others, as large as the screen, touched only where a banner is.
#pragma once

#include "platform/ui_window.hpp"

class SBNotificationBannerWindow : public objc::Interface<"SBNotificationBannerWindow", UIWindow> {};

namespace springboard {

// Where a notification view stands on the screen while it is shown, and before and after. It reaches to the screen's
// lower edge, so that what a banner puts behind itself has the screen to cover; beside its subviews it takes no touch.
CGRect restingBannerFrame();
CGRect hiddenBannerFrame();

void addToBannerWindow(UIView* notificationView);
// Hides the window when no banner is left.
void bannerHasLeftWindow();

// A window that had the keyboard gives it back to the home screen's.
void hideAboveHomeScreen(UIWindow* window);

void defineBannerWindow();
// Once, after the home screen's window, which gets the keyboard back.
void makeBannerWindow(UIWindow* homeWindow);

}  // namespace springboard
