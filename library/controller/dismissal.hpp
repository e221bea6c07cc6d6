// The dismissal of banners. Every dismissal uses these functions, which ensure that a banner is dismissed only once.
// Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

// Sets all dismissal properties of the controller to false.
void clearDismissalFlags(BannerController* controller);

// Call this function when the controller's banner has been attached. It marks the banner as the newest and schedules
// the automatic dismissal after the number of seconds in the setting timeToDismiss.
void prepareDismissal(BannerController* controller);

// Call this function when the controller is deallocated.
void forgetBanner(const BannerController* controller);

// Returns whether the controller's banner is attached and no banner was attached after it.
bool isNewestBanner(const BannerController* controller);
// Returns whether a newer banner was attached after the controller's banner. The newer banner may have been dismissed.
bool hasNewerBanner(const BannerController* controller);

// These functions set the flag DismissNotification of BrimContainer, which describes the newest banner. They do nothing
// if the controller's banner is not the newest, because an older banner must not decide whether a newer one stays.
void allowAutomaticDismissal(const BannerController* controller);
void preventAutomaticDismissal(const BannerController* controller);

// Dismisses the banner in half a second, unless another dismissal begins earlier.
void dismissReplacedBanner(BannerController* controller);

// Removes the banner immediately and dismisses its controller.
void dismissWithoutAnimation(BannerController* controller);

// Returns whether the notification's options permit the automatic dismissal, or true if there are no options.
bool shouldAutoDismiss(BannerController* self);

// Starts the animation that moves the banner off the screen. A nil view represents the attached banner. A forced
// dismissal also dismisses a banner that must stay, and restarts a dismissal that did not finish.
void attemptDismissNotification(BannerController* self, BrimContainer* view, bool forced);
void forceDismissNotification(BannerController* self, BrimContainer* view);

// The last step of a dismissal, after the animation. Dismisses all controllers without an animation.
void preDismiss(BannerController* self);

// Hook. In the banner window, ignores every dismissal whose transition is not 30, the number that the library uses.
void dismissViewController(objc::Original<void(BannerController*, NSInteger, objc::Block<void(bool)>*)> original,
                           BannerController* self, NSInteger transition, objc::Block<void(bool)>* completion);
