#include "library/controller/dismissal.hpp"

#include "library/controller/commands.hpp"
#include "library/settings/settings.hpp"
#include "platform/dispatch.hpp"

namespace {

// The time, in nanoseconds, for which a replaced banner stays behind the newer banner.
constexpr std::int64_t replacementDelay = nanosecondsPerSecond / 2;
// In seconds.
constexpr double minDismissalDuration = 0.7;
constexpr double dismissalDurationPerLine = 0.02;
// In points. At this offset, even the highest banner is above the screen.
constexpr CGFloat dismissalOffset = -1000;
// The transition of a dismissal that the library requests. The platform uses this number too.
constexpr NSInteger libraryTransition = 30;
constexpr NSInteger platformTransition = 0;

// The controller of the banner that was attached last. It is not retained; the pointer becomes null when the controller
// is deallocated.
const BannerController* controllerOfNewestBanner = nullptr;

std::int64_t nanoseconds(NSInteger seconds) {
  std::int64_t product = 0;
  if (__builtin_mul_overflow(seconds, nanosecondsPerSecond, &product)) return seconds < 0 ? INT64_MIN : INT64_MAX;
  return product;
}

// Removes the banner from the screen immediately.
void removeBanner(BannerController* controller) {
  const objc::Ref<BrimContainer> banner = objc::retain(controller->brimView());
  banner->removeFromSuperview();
  controller->setBrimView(nullptr);
}

void scheduleAutomaticDismissal(BannerController* self) {
  const objc::Ref<BannerController> controller = objc::retain(self);
  onMainQueueAfter(nanoseconds(settings::timeToDismiss), [controller] {
    if (controller->isDismissing() || controller->dismissCalled() || controller->wasExternallyDismissed()) return;
    controller->setAutoDimissTriggered(true);
    if (respondsTo<"attemptDismissNotificationForView:forced:">(controller))
      controller->attemptDismissNotification(nullptr, false);
  });
}

double dismissalDuration(BrimContainer* banner) {
  const NSUInteger bodyLines = banner->bodyLabel()->measuredNumberOfLines();
  const bool oneLine = settings::tinyBanner || bodyLines == 0;
  const NSUInteger lines = oneLine ? banner->headerLabel()->measuredNumberOfLines() : bodyLines;
  return minDismissalDuration + dismissalDurationPerLine * static_cast<double>(lines);
}

// Returns the completion block for the animation of a replaced banner. The block removes only this banner. It does not
// call preDismiss, because preDismiss dismisses all controllers and the newer banner must stay on screen.
objc::BlockRef<void(bool)> removalOfReplacedBanner(BannerController* self) {
  const objc::Ref<BannerController> controller = objc::retain(self);
  return objc::block([controller](bool finished) {
    if (finished) removeBanner(controller);
  });
}

// Returns the completion block for the dismissal animation.
objc::BlockRef<void(bool)> removalOfBanner(BannerController* self) {
  const objc::Weak<BannerController> weakController(self);
  return objc::block([weakController](bool finished) {
    const objc::Ref<BannerController> controller = weakController.lock();
    if (!finished || controller == nullptr) return;
    if (!controller->hasDismissed() && respondsTo<"preDismiss">(controller)) controller->preDismiss();
    if (controller->brimView() != nullptr) removeBanner(controller);
  });
}

void slideOut(BannerController* self, BrimContainer* banner) {
  banner->setOverlayWithAnimation(0);
  const double duration = dismissalDuration(banner);
  if (self->wasExternallyDismissed()) {
    self->moveBanner(dismissalOffset, banner, true, duration, removalOfReplacedBanner(self));
    return;
  }
  self->moveBanner(dismissalOffset, banner, true, duration, removalOfBanner(self));
  if (banner->reply()->isFirstResponder()) banner->reply()->resignFirstResponder();
}

void prepareForcedDismissal(BannerController* self) {
  self->setIsDismissing(false);
  self->setHasDismissed(false);
  self->setAutoDimissTriggered(true);
  allowAutomaticDismissal(self);
}

// The platform itself can dismiss the controller with transition 30. The banner is then still attached and must be
// removed. The shared flag DismissNotification is set only if this banner is the newest; otherwise, the flag describes
// a newer banner.
void cleanUpAfterPlatformDismissal(BannerController* controller) {
  if (controller->brimView() == nullptr) return;
  removeBanner(controller);
  allowAutomaticDismissal(controller);
}

}  // namespace

void clearDismissalFlags(BannerController* controller) {
  controller->setHasDismissed(false);
  controller->setAutoDimissTriggered(false);
  controller->setIsDismissing(false);
  controller->setWasExternallyDismissed(false);
  controller->setDismissCalled(false);
}

void prepareDismissal(BannerController* controller) {
  controllerOfNewestBanner = controller;
  clearDismissalFlags(controller);
  scheduleAutomaticDismissal(controller);
}

void forgetBanner(const BannerController* controller) {
  if (controllerOfNewestBanner == controller) controllerOfNewestBanner = nullptr;
}

bool isNewestBanner(const BannerController* controller) {
  return controller == controllerOfNewestBanner && controller->brimView() != nullptr;
}

bool hasNewerBanner(const BannerController* controller) {
  return controllerOfNewestBanner != nullptr && controllerOfNewestBanner != controller;
}

void allowAutomaticDismissal(const BannerController* controller) {
  if (!hasNewerBanner(controller)) BrimContainer::setDismissNotification(true);
}

void preventAutomaticDismissal(const BannerController* controller) {
  if (!hasNewerBanner(controller)) BrimContainer::setDismissNotification(false);
}

void dismissReplacedBanner(BannerController* self) {
  if (self->wasExternallyDismissed()) return;
  self->setWasExternallyDismissed(true);
  const objc::Ref<BannerController> controller = objc::retain(self);
  onMainQueueAfter(replacementDelay, [controller] {
    if (controller->isDismissing() || controller->dismissCalled()) return;
    if (respondsTo<"forceDismissNotificationForView:">(controller))
      controller->forceDismissNotification(controller->brimView());
  });
}

void dismissWithoutAnimation(BannerController* controller) {
  BrimContainer::setDismissNotification(true);
  if (controller->brimView() != nullptr) removeBanner(controller);
  if (respondsTo<"dismissViewControllerWithTransition:completion:">(controller))
    controller->dismissViewController(libraryTransition, nullptr);
}

bool shouldAutoDismiss(BannerController* self) {
  NCNotificationRequest* request = self->notificationRequest();
  if (request == nullptr || request->options() == nullptr) return true;
  return request->options()->dismissAutomatically();
}

void forceDismissNotification(BannerController* self, BrimContainer* view) {
  self->attemptDismissNotification(view, true);
}

void attemptDismissNotification(BannerController* self, BrimContainer* view, bool forced) {
  self->setDismissCalled(true);
  if (self->hasDismissed()) return;
  if (forced) prepareForcedDismissal(self);
  // DismissNotification describes the newest banner. It does not prevent the removal of a banner that was replaced.
  const bool isPermitted = BrimContainer::DismissNotification() || (forced && hasNewerBanner(self));
  if (!isPermitted || !self->autoDimissTriggered()) return;
  const objc::Ref<BrimContainer> banner = objc::retain(view != nullptr ? view : self->brimView());
  if (banner == nullptr || self->isDismissing()) return;
  self->setIsDismissing(true);
  slideOut(self, banner);
}

void preDismiss(BannerController* self) {
  if (self->hasDismissed()) return;
  if (!self->autoDimissTriggered() || !BrimContainer::DismissNotification()) return;
  if (self->brimView() != nullptr && !self->wasExternallyDismissed()) post(Command::DismissWithoutAnimation);
}

void dismissViewController(objc::Original<void(BannerController*, NSInteger, objc::Block<void(bool)>*)> original,
                           BannerController* self, NSInteger transition, objc::Block<void(bool)>* completion) {
  if (!self->isPartOfBanner()) {
    original(self, transition, completion);
    return;
  }
  if (transition != libraryTransition) return;
  const objc::Ref<BannerController> controller = objc::retain(self);
  // Some systems call the completion without an argument, so the parameter has an undefined value. Only the value 1
  // counts as true, because a dismissal that is mistaken for unfinished can be requested again, but a banner whose
  // dismissal is mistaken for finished would stay forever.
  const auto onCompletion = objc::block([controller](unsigned char finished) {
    const bool isDismissed = finished == 1;
    controller->setHasDismissed(isDismissed);
    if (isDismissed) {
      cleanUpAfterPlatformDismissal(controller);
    } else {
      controller->setIsDismissing(false);
    }
  });
  original(self, platformTransition, reinterpret_cast<objc::Block<void(bool)>*>(onCompletion.get()));
}
