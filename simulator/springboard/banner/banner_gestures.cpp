#include "simulator/springboard/banner/banner_gestures.hpp"

#include <algorithm>

#include "simulator/springboard/banner/banner_window.hpp"
#include "simulator/springboard/banner/notification_view_controller.hpp"

namespace springboard {

namespace {

using Controller = NCNotificationShortLookViewController;

constexpr CGFloat pullToDismiss = -20;
constexpr CGFloat pullToOpen = 30;
constexpr double springBackSeconds = 0.2;

// A banner follows the finger upwards; downwards it resists.
void follow(UIView* view, CGFloat pull) {
  constexpr CGFloat resistance = 4;
  CGRect frame = restingBannerFrame();
  frame.origin.y += pull < 0 ? pull : pull / resistance;
  view->setFrame(frame);
}

void springBack(UIView* view) {
  const auto retained = objc::retain(view);
  UIView::animate(springBackSeconds, objc::block([retained] { retained->setFrame(restingBannerFrame()); }));
}

void letGo(Controller* controller, CGFloat pull) {
  if (pull < pullToDismiss) {
    controller->dismissViewController(NSInteger(Transition::SlideOut), nullptr);
    return;
  }
  springBack(controller->view());
  if (pull > pullToOpen)
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
  // Measured where the banner does not move.
  const CGFloat pull = recognizer->translationInView(controller->view()->superview()).y;
  switch (recognizer->state()) {
    case UIGestureRecognizerState::Began:
    case UIGestureRecognizerState::Changed:
      follow(controller->view(), pull);
      break;
    case UIGestureRecognizerState::Ended:
      letGo(controller, pull);
      break;
    case UIGestureRecognizerState::Cancelled:
      springBack(controller->view());
      break;
    default:
      break;
  }
}

}  // namespace springboard
