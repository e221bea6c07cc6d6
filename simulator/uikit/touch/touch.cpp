#include "simulator/uikit/touch/touch_state.hpp"

#include "simulator/uikit/views/class_definitions.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "simulator/uikit/views/view_hierarchy.hpp"

namespace uikit {

UITouch* anyTouch(NSObject* touches) { return objc::send<UITouch*, "anyObject">(touches); }

namespace {

UITouchPhase phase(UITouch* self) { return objc::state(self).phase; }
UIView* view(UITouch* self) { return objc::state(self).view; }
UIWindow* window(UITouch* self) {
  UIView* touched = objc::state(self).view;
  return touched == nullptr ? nullptr : windowOf(touched);
}
double timestamp(UITouch* self) { return objc::state(self).timestamp; }
NSUInteger tapCount(UITouch*) { return 1; }

CGPoint inView(UITouch* self, CGPoint onScreen, UIView* asked) {
  UIView* touched = objc::state(self).view;
  if (asked == nullptr && touched != nullptr) asked = rootOf(touched);
  return convertPoint(onScreen, nullptr, asked);
}
CGPoint locationInView(UITouch* self, UIView* asked) { return inView(self, objc::state(self).location, asked); }
CGPoint previousLocationInView(UITouch* self, UIView* asked) {
  return inView(self, objc::state(self).previousLocation, asked);
}

}  // namespace

void defineTouch() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"phase", &phase>(),
      objc::method<"view", &view>(),
      objc::method<"window", &window>(),
      objc::method<"timestamp", &timestamp>(),
      objc::method<"tapCount", &tapCount>(),
      objc::method<"locationInView:", &locationInView>(),
      objc::method<"previousLocationInView:", &previousLocationInView>(),
  };
  objc::defineClassWithState<UITouch>(methods);
  objc::defineClass<UIEvent>({});
}

}  // namespace uikit
