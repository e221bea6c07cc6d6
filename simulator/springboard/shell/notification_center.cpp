#include "simulator/springboard/shell/notification_center.hpp"

#include <algorithm>
#include <utility>

#include "simulator/springboard/shell/lock_screen.hpp"

namespace springboard {

namespace {

using Center = SBNotificationCenterController;

constexpr double settlingSeconds = 0.3;
// The time, in seconds, for which the sheet would continue to move at its speed at the end of a drag.
constexpr double flickSeconds = 0.2;
// The fraction of the screen by which a drag must move the sheet to open or to close it.
constexpr CGFloat minMovedFraction = 1.0 / 3;

Center* center() {
  static Center* const shared = objc::make<Center>().leak();
  return shared;
}

const objc::Ref<SBCoverSheetController>& openSheet() { return objc::state(center()).sheet; }

void moveTo(const SBCoverSheetController* sheet, CGFloat top) {
  UIWindow* window = objc::state(sheet).window;
  window->setFrame({{0, top}, window->frame().size});
}

void settleOpen() {
  UIView::animate(settlingSeconds, objc::block([sheet = openSheet()] { moveTo(sheet, 0); }));
}

CGFloat speedOf(const UIPanGestureRecognizer* recognizer) {
  return objc::send<CGPoint, "velocityInView:">(recognizer, static_cast<UIView*>(nullptr)).y;
}

bool isFinal(UIGestureRecognizerState state) {
  return state == UIGestureRecognizerState::Ended || state == UIGestureRecognizerState::Cancelled;
}

// Handles a drag that closes the notification center.
void handleClosingDrag(UIPanGestureRecognizer* recognizer) {
  if (openSheet() == nullptr) return;
  const CGFloat height = objc::state(openSheet().get()).window->bounds().size.height;
  const CGFloat top = std::min<CGFloat>(recognizer->translationInView(nullptr).y, 0);
  if (!isFinal(recognizer->state())) return moveTo(openSheet(), top);
  const bool isCancelled = recognizer->state() == UIGestureRecognizerState::Cancelled;
  if (isCancelled || top + flickSeconds * speedOf(recognizer) > -minMovedFraction * height) return settleOpen();
  closeNotificationCenter(NotificationCenterChange::Animated);
}

void beginOpening() {
  objc::state(center()).sheet = makeCoverSheet(nullptr);
  CoverSheetState& state = objc::state(openSheet().get());
  state.handleLowerEdgeDrag = &handleClosingDrag;
  moveTo(openSheet(), -state.window->bounds().size.height);
  state.window->setHidden(false);
}

// Handles a drag that opens the notification center. The lower edge of the sheet follows the finger.
void handleOpeningDrag(Center*, UIPanGestureRecognizer* recognizer) {
  const bool begins = recognizer->state() == UIGestureRecognizerState::Began;
  if (begins && (openSheet() != nullptr || SBLockScreenManager::sharedInstance()->isUILocked())) return;
  if (begins) beginOpening();
  // Another event can have closed the notification center during the drag.
  if (openSheet() == nullptr) return;
  const CGFloat height = objc::state(openSheet().get()).window->bounds().size.height;
  const CGFloat bottom =
      std::clamp<CGFloat>(objc::send<CGPoint, "locationInView:">(recognizer, recognizer->view()).y, 0, height);
  if (!isFinal(recognizer->state())) return moveTo(openSheet(), bottom - height);
  const bool isCancelled = recognizer->state() == UIGestureRecognizerState::Cancelled;
  if (!isCancelled && bottom + flickSeconds * speedOf(recognizer) >= minMovedFraction * height) return settleOpen();
  closeNotificationCenter(NotificationCenterChange::Animated);
}

}  // namespace

void enableNotificationCenter(UIView* upperEdge) {
  upperEdge->addGestureRecognizer(
      UIPanGestureRecognizer::withTarget(center(), objc::selector<"_handlePanFromUpperEdge:">()));
}

bool isNotificationCenterOpen() { return openSheet() != nullptr; }

void closeNotificationCenter(NotificationCenterChange change) {
  const objc::Ref<SBCoverSheetController> sheet = std::exchange(objc::state(center()).sheet, nullptr);
  if (sheet == nullptr) return;
  if (change == NotificationCenterChange::Immediate) return removeCoverSheet(sheet);
  const objc::Ref<UIWindow> window = objc::state(sheet.get()).window;
  window->setUserInteractionEnabled(false);
  UIView::animate(settlingSeconds, objc::block([sheet, window] { moveTo(sheet, -window->bounds().size.height); }),
                  objc::block([sheet](bool) { removeCoverSheet(sheet); }));
}

void defineNotificationCenter() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"_handlePanFromUpperEdge:", &handleOpeningDrag>(),
  };
  objc::defineClassWithState<Center>(methods);
}

}  // namespace springboard
