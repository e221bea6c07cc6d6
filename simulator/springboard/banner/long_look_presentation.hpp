// The functions through which banners open and close the long look. They are set at run time, because the long look
// depends on banners and banners must not depend on it. Main thread.
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

// Call it once, before the first banner. All functions must be set.
void setLongLookPresentation(const LongLookPresentation& presentation);
const LongLookPresentation& longLookPresentation();

// Whether the long look of this short look is open.
bool showsLongLook(const NCNotificationShortLookViewController* shortLook);

}  // namespace springboard
