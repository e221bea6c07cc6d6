// The dismissal of banners. Every dismissal uses these functions, which ensure that a banner is dismissed only once.
// Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

// Sets all dismissal properties of the controller to false.
void clearDismissalFlags(BannerController* controller);

// Call this function when the controller's banner has been attached. It marks the banner as the newest and schedules
// the automatic dismissal, after as many seconds as the setting timeToDismiss specifies.
void prepareDismissal(BannerController* controller);

// Call this function when the controller is deallocated.
void forgetBanner(const BannerController* controller);

// Whether the controller's banner is attached, and no banner was attached after it.
bool isNewestBanner(const BannerController* controller);
// Whether another controller's banner was attached after the controller's banner. That banner can already be dismissed.
bool hasNewerBanner(const BannerController* controller);

// These functions set DismissNotification of BrimContainer, which describes the newest banner. They do nothing if the
// controller has a newer banner, because an older banner must not decide whether the newer one stays.
void allowAutomaticDismissal(const BannerController* controller);
void preventAutomaticDismissal(const BannerController* controller);

// Dismisses the banner in half a second, unless another dismissal begins earlier.
void dismissReplacedBanner(BannerController* controller);

// Removes the banner immediately and dismisses its controller.
void dismissWithoutAnimation(BannerController* controller);

// Whether the notification's options permit the automatic dismissal. True if the notification has no options.
bool shouldAutoDismiss(BannerController* self);

// Starts the animation that moves the banner off the screen. If the view is nil, it means the attached banner. A forced
// dismissal also dismisses a banner that must stay, and restarts a dismissal that did not finish.
void attemptDismissNotification(BannerController* self, BrimContainer* view, bool forced);
void forceDismissNotification(BannerController* self, BrimContainer* view);

// The last step of a dismissal, after the animation. Dismisses all controllers without an animation.
void preDismiss(BannerController* self);

// Hook. In the banner window, ignores a dismissal unless its transition is 30, the number that the library uses.
void dismissViewController(objc::Original<void(BannerController*, NSInteger, objc::Block<void(bool)>*)> original,
                           BannerController* self, NSInteger transition, objc::Block<void(bool)>* completion);
