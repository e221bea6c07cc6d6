#include "library/controller/dismissal.hpp"

#include "library/controller/attachment.hpp"
#include "library/controller/commands.hpp"
#include "library/startup/settings.hpp"
#include "platform/dispatch.hpp"

namespace {

constexpr double shortestDismissal = 0.7;
constexpr double dismissalPerLine = 0.02;
// Far enough above the screen for any banner.
constexpr CGFloat dismissalOffset = -1000;
constexpr NSInteger ownTransition = 30;
constexpr NSInteger platformTransition = 0;

std::int64_t nanoseconds(NSInteger seconds) {
  std::int64_t product = 0;
  if (__builtin_mul_overflow(seconds, nanosecondsPerSecond, &product)) return seconds < 0 ? INT64_MIN : INT64_MAX;
  return product;
}

double dismissalDuration(BrimContainer* banner) {
  const NSUInteger bodyLines = banner->bodyLabel()->measuredNumberOfLines();
  const bool oneLine = settings::tinyBanner || bodyLines == 0;
  const NSUInteger lines = oneLine ? banner->headerLabel()->measuredNumberOfLines() : bodyLines;
  return shortestDismissal + dismissalPerLine * static_cast<double>(lines);
}

// A newer banner has the place already: this one only goes.
objc::BlockRef<void(bool)> removalWhenReplaced(BannerController* self) {
  const objc::Ref<BannerController> controller = objc::retain(self);
  return objc::block([controller](bool finished) {
    if (finished) removeBanner(controller);
  });
}

objc::BlockRef<void(bool)> removal(BannerController* self) {
  const objc::Weak<BannerController> held(self);
  return objc::block([held](bool finished) {
    const objc::Ref<BannerController> controller = held.lock();
    if (!finished || controller == nullptr) return;
    if (!controller->hasDismissed() && answers<"preDismiss">(controller)) controller->preDismiss();
    if (controller->brimView() != nullptr) removeBanner(controller);
  });
}

void slideOut(BannerController* self, BrimContainer* banner) {
  banner->setOverlayWithAnimation(0);
  const double duration = dismissalDuration(banner);
  if (self->wasExternallyDismissed()) {
    self->moveBanner(dismissalOffset, banner, true, duration, removalWhenReplaced(self));
    return;
  }
  self->moveBanner(dismissalOffset, banner, true, duration, removal(self));
  if (banner->reply()->isFirstResponder()) banner->reply()->resignFirstResponder();
}

// A forced request overrides a banner that must stay, and starts a half-finished dismissal again.
void override(BannerController* self) {
  self->setIsDismissing(false);
  self->setHasDismissed(false);
  self->setAutoDimissTriggered(true);
  BrimContainer::setDismissNotification(true);
}

// Where the platform itself asked for the dismissal, the banner went with its controller, and holds nobody back. What
// has taken its place may.
void leaveNothingBehind(BannerController* controller) {
  if (controller->brimView() == nullptr) return;
  removeBanner(controller);
  if (hasNewestBanner(controller)) BrimContainer::setDismissNotification(true);
}

}  // namespace

void clearDismissalFlags(BannerController* controller) {
  controller->setHasDismissed(false);
  controller->setAutoDimissTriggered(false);
  controller->setIsDismissing(false);
  controller->setWasExternallyDismissed(false);
  controller->setDismissCalled(false);
}

void scheduleAutomaticDismissal(BannerController* self) {
  const objc::Ref<BannerController> controller = objc::retain(self);
  onMainQueueAfter(nanoseconds(settings::timeToDismiss), [controller] {
    if (controller->isDismissing() || controller->dismissCalled() || controller->wasExternallyDismissed()) return;
    controller->setAutoDimissTriggered(true);
    if (answers<"attemptDismissNotificationForView:forced:">(controller))
      controller->attemptDismissNotification(nullptr, false);
  });
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
  if (forced) override(self);
  if (!BrimContainer::DismissNotification() || !self->autoDimissTriggered()) return;
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

void handleTap(objc::Original<void(BannerController*, NSObject*)> original, BannerController* self, NSObject* view) {
  self->forceDismissNotification(nullptr);
  original(self, view);
}

void dismissViewController(objc::Original<void(BannerController*, NSInteger, objc::Block<void(bool)>*)> original,
                           BannerController* self, NSInteger transition, objc::Block<void(bool)>* completion) {
  if (!self->isPartOfBanner()) {
    original(self, transition, completion);
    return;
  }
  if (transition != ownTransition) return;
  const objc::Ref<BannerController> controller = objc::retain(self);
  const auto whenGone = objc::block([controller](bool finished) {
    controller->setHasDismissed(finished);
    if (finished) {
      leaveNothingBehind(controller);
    } else {
      controller->setIsDismissing(false);
    }
  });
  original(self, platformTransition, whenGone);
}
