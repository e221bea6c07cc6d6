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

CGPoint inView(UITouch* self, CGPoint onScreen, UIView* coordinateView) {
  UIView* touched = objc::state(self).view;
  if (coordinateView == nullptr && touched != nullptr) coordinateView = rootOf(touched);
  return convertPoint(onScreen, nullptr, coordinateView);
}
CGPoint locationInView(UITouch* self, UIView* coordinateView) {
  return inView(self, objc::state(self).location, coordinateView);
}
CGPoint previousLocationInView(UITouch* self, UIView* coordinateView) {
  return inView(self, objc::state(self).previousLocation, coordinateView);
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
