#include "library/controller/gestures.hpp"

#include "library/applications/supported_applications.hpp"
#include "library/controller/dismissal.hpp"
#include "library/settings/settings.hpp"

namespace {

// A drag of this length, in points, changes the height by one point.
constexpr CGFloat dragPointsPerHeightPoint = 4;
constexpr NSInteger expandedLineCount = 15;

void didExpand(BannerController* self, BrimContainer* banner) {
  if (!settings::showButtons) banner->replyButtonPressed(nullptr);
  banner->setMaxLineCount(expandedLineCount);
  NSString* application = self->getBundleId();
  if (application != nullptr && application->isEqualToString(messagesIdentifier()) &&
      settings::autoReadMode() == settings::AutoReadMode::WhenExpanded)
    self->markMessagesAsRead();
}

void handleDrag(BannerController* self, BrimContainer* banner, CGFloat translation, bool upward) {
  self->moveBanner(upward ? translation : 0, banner, false, nullptr);
  if (!upward) self->expandBanner(translation, banner, false, nullptr);
}

// If the drag is too short for a dismissal, the banner is expanded.
void handleEndOfDragUpward(BannerController* self, BrimContainer* banner, CGFloat translation) {
  if (translation > banner->defaultDismiss()) {
    self->moveBanner(0, banner, true, nullptr);
    didExpand(self, banner);
    return;
  }
  allowAutomaticDismissal(self);
  banner->reply()->setText(""_ns);
  self->forceDismissNotification(banner);
}

void handleEndOfDragDownward(BannerController* self, BrimContainer* banner) {
  const CGFloat distanceToExpand =
      (banner->defaultExpandedHeight() - banner->defaultHeight()) * dragPointsPerHeightPoint;
  self->expandBanner(distanceToExpand, banner, true, nullptr);
  didExpand(self, banner);
  if (self->brimView()->enablePrivacy()) self->brimView()->showContent();
}

// Iterates over a copy, because each removal changes the view's list. The cast skips nil, which the platform's list
// contains in place of a weakly referenced object that was deallocated.
void removeRecognizers(UIView* view, NSArray* recognizers) {
  const objc::Ref<NSArray> copy = recognizers->copied();
  for (NSUInteger index = 0; index < copy->count(); ++index)
    if (auto* recognizer = objc::as<UIGestureRecognizer>(copy->objectAtIndex(index)))
      view->removeGestureRecognizer(recognizer);
}

// Returns the recognizers that the view stores in its instance variable. If its class has no such variable, returns the
// recognizers that the view reports.
NSArray* recognizersInside(UIView* view) {
  const id object = objc::detail::toId(view);
  const Ivar variable = class_getInstanceVariable(object_getClass(object), "_gestureRecognizers");
  return variable == nullptr ? view->gestureRecognizers() : objc::as<NSArray>(object_getIvar(object, variable));
}

}  // namespace

void replaceGestureRecognizers(BannerController* controller, UIView* view, UIView* content, BrimContainer* banner) {
  removeRecognizers(view, recognizersInside(view));
  removeRecognizers(content, content->gestureRecognizers());
  banner->addGestureRecognizer(UITapGestureRecognizer::withTarget(controller, objc::selector<"_handleTapOnView:">()));
  banner->addGestureRecognizer(UIPanGestureRecognizer::withTarget(controller, objc::selector<"panGestureHandler:">()));
}

void handleTap(objc::Original<void(BannerController*, NSObject*)> original, BannerController* self, NSObject* view) {
  self->forceDismissNotification(nullptr);
  original(self, view);
}

void panGestureHandler(BannerController* self, UIPanGestureRecognizer* recognizer) {
  auto* banner = static_cast<BrimContainer*>(recognizer->view());
  // A gesture can continue after the banner was removed. Without a superview, the banner cannot be moved.
  if (self->isDismissing() || banner->superview() == nullptr) return;
  const CGFloat translation = recognizer->translationInView(self->view()).y;
  const bool upward = translation <= 0 && (banner->height() <= banner->defaultHeight() || banner->isFullyExpanded() ||
                                           banner->showingAllLines());
  const UIGestureRecognizerState state = recognizer->state();
  if (state != UIGestureRecognizerState::Ended && state != UIGestureRecognizerState::Cancelled) {
    handleDrag(self, banner, translation, upward);
  } else if (upward) {
    handleEndOfDragUpward(self, banner, translation);
  } else {
    handleEndOfDragDownward(self, banner);
  }
}

void moveBanner(BannerController*, CGFloat offset, BrimContainer* view, bool animated,
                objc::Block<void(bool)>* completion) {
  view->updateTop(view->defaultOffset() + offset, animated, completion);
}

void moveBannerWithDuration(BannerController*, CGFloat offset, BrimContainer* view, bool animated, double duration,
                            objc::Block<void(bool)>* completion) {
  view->updateTop(view->defaultOffset() + offset, animated, duration, completion);
}

void expandBanner(BannerController* self, CGFloat distance, BrimContainer* view, bool animated,
                  objc::Block<void(bool)>* completion) {
  const CGFloat heightAtRest = view->defaultHeight();
  const CGFloat fullHeight = view->defaultExpandedHeight();
  const CGFloat current = view->height();
  CGFloat target = current + distance / dragPointsPerHeightPoint;
  CGFloat progress = 1 - (fullHeight - current) / (fullHeight - heightAtRest);
  if (target >= fullHeight) {
    target = fullHeight;
    progress = 1;
    preventAutomaticDismissal(self);
  } else if (target <= heightAtRest) {
    target = heightAtRest;
    progress = 0;
    allowAutomaticDismissal(self);
  }
  if (!view->canReply() && !view->enableButtons() && view->showingAllLines()) return;
  view->updateHeight(target, animated, completion);
  view->setButtonsAlpha(progress);
}
