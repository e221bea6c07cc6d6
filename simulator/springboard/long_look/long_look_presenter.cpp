#include "simulator/springboard/long_look/long_look_presenter.hpp"

#include <utility>

#include "platform/ui_window.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"
#include "simulator/springboard/banner/notification_view.hpp"
#include "simulator/uikit/views/view_controller.hpp"
#include "simulator/uikit/views/view_geometry.hpp"

namespace springboard {

namespace {

using ShortLook = NCNotificationShortLookViewController;
using LongLook = NCNotificationLongLookViewController;

constexpr double openingSeconds = 0.35;
constexpr double closingSeconds = 0.25;

objc::Ref<ShortLook>& opened() {
  static objc::Ref<ShortLook>& shortLook = *new objc::Ref<ShortLook>;
  return shortLook;
}

LongLook* longLookOf(const ShortLook* shortLook) {
  return static_cast<LongLook*>(objc::state<UIViewController>(shortLook).presented.get());
}

bool canOpen(const ShortLook* shortLook) {
  return shortLook->view()->window() != nullptr && !isBannerBeingDismissed(numberOfBanner(shortLook)) &&
         objc::state<UIViewController>(shortLook).presented == nullptr;
}

// Returns whether closing the long look must dismiss the short look's banner, which then closes the long look. Returns
// false for a short look in the list and for a banner that is already being dismissed.
bool isDismissedWithLongLook(const ShortLook* shortLook) {
  const std::size_t number = numberOfBanner(shortLook);
  return isBannerOnScreen(number) && !isBannerBeingDismissed(number);
}

// Presents the long look with the method of UIViewController, because NCNotificationViewController overrides it.
void presentController(ShortLook* shortLook, LongLook* longLook) {
  objc::sendSuper<"NCNotificationViewController", void, "presentViewController:animated:completion:">(
      shortLook, static_cast<UIViewController*>(longLook), false, static_cast<objc::Block<void()>*>(nullptr));
}

void dismissController(ShortLook* shortLook) {
  objc::send<void, "dismissViewControllerAnimated:completion:">(shortLook, false,
                                                                static_cast<objc::Block<void()>*>(nullptr));
}

}  // namespace

void presentLongLook(ShortLook* shortLook, LongLookChange change, objc::Block<void(bool)>* completion) {
  if (!canOpen(shortLook)) {
    if (completion != nullptr) (*completion)(false);
    return;
  }
  dismissLongLook(LongLookChange::Immediate);
  opened() = objc::retain(shortLook);
  const auto longLook = makeLongLookController(shortLook->notificationRequest());
  const CGRect shortLookFrame = uikit::frameOnScreen(contentViewOf(shortLook->view()));
  presentController(shortLook, longLook);
  shortLook->view()->setHidden(true);
  collapseLongLook(longLook, shortLookFrame);
  const double seconds = change == LongLookChange::Animated ? openingSeconds : 0;
  longLook->view()->layoutIfNeeded();
  UIView::animate(seconds, objc::block([longLook] {
                    expandLongLook(longLook);
                    longLook->view()->layoutIfNeeded();
                  }),
                  completion);
}

ShortLook* openedShortLook() { return opened(); }

void dismissLongLook(LongLookChange change) {
  if (opened() == nullptr) return;
  const bool isImmediate = change == LongLookChange::Immediate;
  if (isDismissedWithLongLook(opened()))
    return dismissBanner(opened(), NSInteger(isImmediate ? Transition::None : Transition::SlideOut), nullptr);
  const objc::Ref<ShortLook> shortLook = std::exchange(opened(), nullptr);
  if (!isBannerOnScreen(numberOfBanner(shortLook))) shortLook->view()->setHidden(false);
  const LongLook* longLook = longLookOf(shortLook);
  // The long look is null if the dismissal of the banner has already closed it.
  if (longLook == nullptr) return;
  endTyping(longLook);
  if (isImmediate) return dismissController(shortLook);
  const auto fading = objc::retain(longLook->view());
  fading->setUserInteractionEnabled(false);
  UIView::animate(closingSeconds, objc::block([fading] { fading->setAlpha(0); }),
                  objc::block([shortLook](bool) { dismissController(shortLook); }));
}

void dismissLongLookOf(const NotificationKey& key) {
  if (opened() != nullptr && keyOf(opened()->notificationRequest()) == key) dismissLongLook(LongLookChange::Animated);
}

void dismissLongLook(const LongLook* longLook) {
  if (opened() != nullptr && longLookOf(opened()) == longLook) dismissLongLook(LongLookChange::Animated);
}

}  // namespace springboard
