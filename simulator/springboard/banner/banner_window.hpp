// The window of the banners. It covers the whole screen above all other windows and accepts touches only on banners.
// Main thread.
#pragma once

#include "platform/ui_window.hpp"

class SBNotificationBannerWindow : public objc::Interface<"SBNotificationBannerWindow", UIWindow> {};

namespace springboard {

// The frames of a notification view. The view has the resting frame while it is on the screen, and the hidden frame
// before and after that. Both frames extend to the lower edge of the screen, because a banner can add a background that
// covers the screen. The view accepts touches only on its subviews.
CGRect restingBannerFrame();
CGRect hiddenBannerFrame();

void addToBannerWindow(UIView* notificationView);
// Hides the window if it contains no banner. Call this after a banner has been removed.
void hideBannerWindowIfEmpty();

// Hides the window. If it was the key window, the window of the home screen becomes the key window.
void hideWindowAboveHomeScreen(UIWindow* window);

void defineBannerWindow();
// Creates the window, which is hidden at first. Call this once.
void makeBannerWindow();
// Sets the window of the home screen and retains it. Without this window, no window becomes the key window when another
// window is hidden.
void setHomeWindow(UIWindow* window);

}  // namespace springboard
