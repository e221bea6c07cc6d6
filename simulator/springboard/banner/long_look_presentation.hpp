// The connection from banners to the long look. The long look is built on banners, so banners reach it through these
// functions. Main thread.
#pragma once

#include "platform/nc_notification_view_controller.hpp"

namespace springboard {

enum class LongLookChange { Animated, Immediate };

// See long_look/long_look_presenter.hpp for each function.
struct LongLookPresentation {
  void (*present)(NCNotificationShortLookViewController* shortLook, LongLookChange change,
                  objc::Block<void(bool)>* completion);
  void (*dismiss)(LongLookChange change);
  NCNotificationShortLookViewController* (*openedShortLook)();
};

// Call it once, before the first banner.
void setLongLookPresentation(const LongLookPresentation& presentation);
const LongLookPresentation& longLookPresentation();

bool showsLongLook(const NCNotificationShortLookViewController* shortLook);

}  // namespace springboard
