#include "library/view/keyboard_avoidance.hpp"

#include "library/view/height_and_position.hpp"
#include "platform/ns_notification_center.hpp"
#include "platform/ns_value.hpp"

namespace {

constexpr CGFloat gapAboveKeyboard = 8;
// The resistance of the body is lower than the limit, so the body is compressed before the limit is exceeded. The other
// texts are not compressed, because their resistance has the platform's default priority of 750.
constexpr float bodyResistance = 500;
constexpr float limitPriority = 700;

// The values of the platform's string constants.
NSString* frameChangeName() { return "UIKeyboardWillChangeFrameNotification"_ns; }
NSString* endFrameKey() { return "UIKeyboardFrameEndUserInfoKey"_ns; }

void limitHeight(BrimContainer* self, CGFloat maxHeight) {
  BrimContainerState& state = objc::state(self);
  if (state.heightLimit == nullptr) {
    state.bodyLabel->setCompressionResistance(bodyResistance, UILayoutConstraintAxis::Vertical);
    state.heightLimit = objc::retain(self->topAnchor()->atLeast(self->bottomAnchor(), -maxHeight));
    state.heightLimit->setPriority(limitPriority);
    state.heightLimit->setActive(true);
  } else {
    state.heightLimit->setConstant(-maxHeight);
  }
  self->superview()->layoutIfNeeded();
}

void keyboardWillChangeFrame(BrimTextField* self, NSNotification* notification) {
  auto* banner = objc::as<BrimContainer>(self->superview());
  auto* endFrame = objc::as<NSValue>(notification->userInfo()->objectForKey(endFrameKey()));
  if (banner == nullptr || banner->superview() == nullptr || endFrame == nullptr) return;
  const CGRect keyboard = endFrame->CGRectValue();
  // The platform reports a floating keyboard with a height of 0. The user can move it away from the banner.
  if (keyboard.size.height <= 0) return;
  const CGFloat keyboardTop = banner->superview()->convertRect(keyboard, nullptr).origin.y;
  const objc::Ref<BrimContainer> retained = objc::retain(banner);
  const CGFloat maxHeight = keyboardTop - gapAboveKeyboard - banner->defaultOffset();
  UIView::animate(resizeDuration, objc::block([retained, maxHeight] { limitHeight(retained.get(), maxHeight); }));
}

void deallocate(BrimTextField* self) {
  NSNotificationCenter::defaultCenter()->removeObserver(self, frameChangeName());
  objc::sendSuper<"BrimTextField", void, "dealloc">(self);
}

constexpr objc::MethodEntry methods[] = {
    objc::method<"keyboardWillChangeFrame:", &keyboardWillChangeFrame>(),
    objc::method<"dealloc", &deallocate>(),
};

}  // namespace

std::span<const objc::MethodEntry> replyFieldMethods() { return methods; }

void observeKeyboard(const BrimContainerState& state) {
  NSNotificationCenter::defaultCenter()->addObserver(state.reply, objc::selector<"keyboardWillChangeFrame:">(),
                                                     frameChangeName());
}
