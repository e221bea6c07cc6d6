// The dismissal of banners. Every dismissal goes through these functions; each banner is dismissed once. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

void clearDismissalFlags(BannerController* controller);

// Call when the controller's banner is attached. The banner is then the newest, and it dismisses itself after
// timeToDismiss seconds unless another dismissal comes first.
void prepareDismissal(BannerController* controller);

// Call when the controller is deallocated.
void forgetBanner(const BannerController* controller);

// Whether the controller's banner is attached, and no banner was attached after it.
bool isNewestBanner(const BannerController* controller);
// Whether another controller's banner was attached after the controller's banner. That banner can already be dismissed.
bool hasNewerBanner(const BannerController* controller);

// Set BrimContainer's DismissNotification. It belongs to the newest banner; the functions do nothing if the controller
// has a newer banner, because an older banner must not decide whether the newer one stays.
void allowAutomaticDismissal(const BannerController* controller);
void preventAutomaticDismissal(const BannerController* controller);

// Dismisses the banner half a second from now, unless another dismissal comes first.
void dismissReplacedBanner(BannerController* controller);

// Removes the banner at once and dismisses its controller.
void dismissWithoutAnimation(BannerController* controller);

// Whether the notification's options allow that the banner dismisses itself. True without options.
bool shouldAutoDismiss(BannerController* self);

// Moves the banner out of the screen. nil means the attached banner. A forced dismissal also dismisses a banner that
// must stay, and restarts a dismissal that did not finish.
void attemptDismissNotification(BannerController* self, BrimContainer* view, bool forced);
void forceDismissNotification(BannerController* self, BrimContainer* view);

// The last step: the animation is finished. Dismisses all controllers.
void preDismiss(BannerController* self);

// Hook. In the banner window, ignores a dismissal whose transition is not the library's own number.
void dismissViewController(objc::Original<void(BannerController*, NSInteger, objc::Block<void(bool)>*)> original,
                           BannerController* self, NSInteger transition, objc::Block<void(bool)>* completion);
