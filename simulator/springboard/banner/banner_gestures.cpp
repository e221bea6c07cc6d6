#include "simulator/springboard/banner/banner_gestures.hpp"

#include <algorithm>

#include "simulator/springboard/banner/banner_window.hpp"
#include "simulator/springboard/banner/notification_view_controller.hpp"

namespace springboard {

namespace {

using Controller = NCNotificationShortLookViewController;

// The thresholds for the vertical translation at the end of a drag, in points. A positive translation is downward.
constexpr CGFloat maxDragToDismiss = -20;
constexpr CGFloat minDragToOpen = 30;
constexpr double springBackSeconds = 0.2;

// Moves the banner with the finger. The banner follows an upward drag exactly and a downward drag with resistance.
void followDrag(UIView* view, CGFloat translation) {
  constexpr CGFloat resistance = 4;
  CGRect frame = restingBannerFrame();
  frame.origin.y += translation < 0 ? translation : translation / resistance;
  view->setFrame(frame);
}

void springBack(UIView* view) {
  const auto retained = objc::retain(view);
  UIView::animate(springBackSeconds, objc::block([retained] { retained->setFrame(restingBannerFrame()); }));
}

void endDrag(Controller* controller, CGFloat translation) {
  if (translation < maxDragToDismiss) {
    controller->dismissViewController(NSInteger(Transition::SlideOut), nullptr);
    return;
  }
  springBack(controller->view());
  if (translation > minDragToOpen)
    objc::send<void, "_presentLongLookForScrollAnimated:completion:">(controller, true,
                                                                      static_cast<objc::Block<void(bool)>*>(nullptr));
}

}  // namespace

void addTap(Controller* controller, UIView* view) {
  view->addGestureRecognizer(UITapGestureRecognizer::withTarget(controller, objc::selector<"_handleTapOnView:">()));
}

void addBannerGestures(Controller* controller, UIView* view) {
  addTap(controller, view);
  view->addGestureRecognizer(UIPanGestureRecognizer::withTarget(controller, objc::selector<"_handlePanOnView:">()));
}

void handlePan(Controller* controller, UIPanGestureRecognizer* recognizer) {
  // Measures the translation in the superview, because the banner itself moves.
  const CGFloat translation = recognizer->translationInView(controller->view()->superview()).y;
  switch (recognizer->state()) {
    case UIGestureRecognizerState::Began:
    case UIGestureRecognizerState::Changed:
      followDrag(controller->view(), translation);
      break;
    case UIGestureRecognizerState::Ended:
      endDrag(controller, translation);
      break;
    case UIGestureRecognizerState::Cancelled:
      springBack(controller->view());
      break;
    default:
      break;
  }
}

}  // namespace springboard
