#include "library/controller/gestures.hpp"

#include "library/messages/names.hpp"
#include "library/startup/settings.hpp"

namespace {

// The banner grows by this part of the finger's way.
constexpr CGFloat travelPerPoint = 4;
constexpr NSInteger expandedLineCount = 15;

void followExpansion(BannerController* self, BrimContainer* banner) {
  if (!settings::showButtons) banner->replyButtonPressed(nullptr);
  banner->setMaxLineCount(expandedLineCount);
  NSString* application = self->getBundleId();
  if (application != nullptr && application->isEqualToString(messagesIdentifier()) &&
      settings::messagesAutoReadMode == bridge::readWhenExpanded)
    self->markMessagesAsRead();
}

void dragMoves(BannerController* self, BrimContainer* banner, CGFloat translation, bool upward) {
  self->moveBanner(upward ? translation : 0, banner, false, nullptr);
  if (!upward) self->expandBanner(translation, banner, false, nullptr);
}

void dragEndsUpward(BannerController* self, BrimContainer* banner, CGFloat translation) {
  if (translation > banner->defaultDismiss()) {
    self->moveBanner(0, banner, true, nullptr);
    followExpansion(self, banner);
    return;
  }
  BrimContainer::setDismissNotification(true);
  banner->reply()->setText(""_ns);
  self->forceDismissNotification(banner);
}

void dragEndsDownward(BannerController* self, BrimContainer* banner) {
  const CGFloat wholeWay = (banner->defaultExpandedHeight() - banner->defaultHeight()) * travelPerPoint;
  self->expandBanner(wholeWay, banner, true, nullptr);
  followExpansion(self, banner);
  if (self->brimView()->enablePrivacy()) self->brimView()->showContent();
}

}  // namespace

void panGestureHandler(BannerController* self, UIPanGestureRecognizer* recognizer) {
  auto* banner = static_cast<BrimContainer*>(recognizer->view());
  // The finger may outlast the banner, which has no place to move to once it has left.
  if (self->isDismissing() || banner->superview() == nullptr) return;
  const CGFloat translation = recognizer->translationInView(self->view()).y;
  const bool upward = translation <= 0 && (banner->height() <= banner->defaultHeight() || banner->isFullyExpanded() ||
                                           banner->showingAllLines());
  const UIGestureRecognizerState state = recognizer->state();
  if (state != UIGestureRecognizerState::Ended && state != UIGestureRecognizerState::Cancelled) {
    dragMoves(self, banner, translation, upward);
  } else if (upward) {
    dragEndsUpward(self, banner, translation);
  } else {
    dragEndsDownward(self, banner);
  }
}

void moveBanner(BannerController*, CGFloat offset, BrimContainer* view, bool animated,
                objc::Block<void(bool)>* completion) {
  view->updateTop(view->defaultOffset() + offset, animated, completion);
}

void moveBannerFor(BannerController*, CGFloat offset, BrimContainer* view, bool animated, double duration,
                   objc::Block<void(bool)>* completion) {
  view->updateTop(view->defaultOffset() + offset, animated, duration, completion);
}

void expandBanner(BannerController*, CGFloat distance, BrimContainer* view, bool animated,
                  objc::Block<void(bool)>* completion) {
  const CGFloat resting = view->defaultHeight();
  const CGFloat expanded = view->defaultExpandedHeight();
  const CGFloat current = view->height();
  CGFloat target = current + distance / travelPerPoint;
  CGFloat progress = 1 - (expanded - current) / (expanded - resting);
  if (target >= expanded) {
    target = expanded;
    progress = 1;
    BrimContainer::setDismissNotification(false);
  } else if (target <= resting) {
    target = resting;
    progress = 0;
    BrimContainer::setDismissNotification(true);
  }
  if (!view->canReply() && !view->enableButtons() && view->showingAllLines()) return;
  view->updateHeight(target, animated, completion);
  view->setButtonsAlpha(progress);
}

bool isPartOfBanner(NotificationController* self) {
  for (UIView* view = self->view(); view != nullptr; view = view->superview())
    if (__builtin_strcmp(object_getClassName(objc::detail::identifier(view)), "SBNotificationBannerWindow") == 0)
      return true;
  return false;
}

void presentLongLookForScroll(objc::Original<void(BannerController*, bool, objc::Block<void(bool)>*)> original,
                              BannerController* self, bool animated, objc::Block<void(bool)>* completion) {
  if (!self->isPartOfBanner()) original(self, animated, completion);
}

void presentLongLookViaClick(objc::Original<void(BannerController*, NSObject*)> original, BannerController* self,
                             NSObject* interaction) {
  if (!self->isPartOfBanner()) original(self, interaction);
}

void presentLongLook(objc::Original<void(NotificationController*, bool, NSInteger, objc::Block<void(bool)>*)> original,
                     NotificationController* self, bool animated, NSInteger trigger,
                     objc::Block<void(bool)>* completion) {
  if (!self->isPartOfBanner()) original(self, animated, trigger, completion);
}

void presentViewController(
    objc::Original<void(NotificationController*, UIViewController*, bool, objc::Block<void()>*)> original,
    NotificationController* self, UIViewController* presented, bool animated, objc::Block<void()>* completion) {
  if (!self->isPartOfBanner() || BrimContainer::DismissNotification()) {
    original(self, presented, animated, completion);
  } else {
    self->attemptUpdateReply(presented->view());
  }
}
