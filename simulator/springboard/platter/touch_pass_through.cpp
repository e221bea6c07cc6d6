#include "simulator/springboard/platter/touch_pass_through.hpp"

#include "objc/class_definition.hpp"

namespace springboard {

bool isInsideSubview(UIView* self, CGPoint point, NSObject* event) {
  const NSArray* subviews = self->subviews();
  for (NSUInteger index = 0; index < subviews->count(); ++index) {
    NSObject* subview = subviews->objectAtIndex(index);
    const CGPoint inSubview = objc::send<CGPoint, "convertPoint:fromView:">(subview, point, self);
    if (objc::send<UIView*, "hitTest:withEvent:">(subview, inSubview, event) != nullptr) return true;
  }
  return false;
}

void defineTouchPassThroughView() {
  static constexpr objc::MethodEntry methods[] = {objc::method<"pointInside:withEvent:", &isInsideSubview>()};
  objc::defineClass<SBFTouchPassThroughView>(methods);
}

}  // namespace springboard
