#include "simulator/springboard/shell/grabber.hpp"

#include "objc/class_definition.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"

namespace springboard {

namespace {

SBGrabberTongue* sharedInstance(Class self) {
  static SBGrabberTongue* const shared = objc::send<SBGrabberTongue*, "new">(reinterpret_cast<void*>(self));
  return shared;
}

bool dismiss(SBGrabberTongue*, NSInteger, bool) {
  const bool hasBanner = isAnyBannerOnScreen();
  dismissAllBanners();
  return hasBanner;
}

}  // namespace

void defineGrabber() {
  static constexpr objc::MethodEntry methods[] = {
      objc::classMethod<"sharedInstance", &sharedInstance>(),
      objc::method<"dismissWithStyle:animated:", &dismiss>(),
  };
  objc::defineClass<SBGrabberTongue>(methods);
}

}  // namespace springboard
