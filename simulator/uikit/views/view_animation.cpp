// UIView's animation methods, such as +animateWithDuration:animations:.
#include "simulator/uikit/animation/animation_group.hpp"
#include "simulator/uikit/views/view_categories.hpp"
#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

namespace {

using Changes = objc::Block<void()>*;
using Completion = objc::Block<void(bool)>*;

void animate(Class, double duration, Changes animations) { runAnimation({duration, 0}, animations, nullptr); }

void animateWithCompletion(Class, double duration, Changes animations, Completion completion) {
  runAnimation({duration, 0}, animations, completion);
}

// Animates changes. Ignores the options: every animation has the default timing curve.
void animateWithOptions(Class, double duration, double delay, NSUInteger, Changes animations, Completion completion) {
  runAnimation({duration, delay}, animations, completion);
}

void performWithoutAnimation(Class, Changes changes) { runWithoutAnimation(changes); }

}  // namespace

std::span<const objc::MethodEntry> viewAnimationMethods() {
  static constexpr objc::MethodEntry methods[] = {
      objc::classMethod<"animateWithDuration:animations:", &animate>(),
      objc::classMethod<"animateWithDuration:animations:completion:", &animateWithCompletion>(),
      objc::classMethod<"animateWithDuration:delay:options:animations:completion:", &animateWithOptions>(),
      objc::classMethod<"performWithoutAnimation:", &performWithoutAnimation>(),
  };
  return methods;
}

}  // namespace uikit
