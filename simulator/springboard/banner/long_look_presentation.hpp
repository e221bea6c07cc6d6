// The functions with which banners open and close the long look. They are set at run time, because the long look
// depends on banners, so banners must not depend on the long look. Main thread.
#pragma once

#include "platform/nc_notification_view_controller.hpp"

namespace springboard {

enum class LongLookChange { Animated, Immediate };

// The functions. long_look/long_look_presenter.hpp describes each function.
struct LongLookPresentation {
  void (*present)(NCNotificationShortLookViewController* shortLook, LongLookChange change,
                  objc::Block<void(bool)>* completion);
  void (*dismiss)(LongLookChange change);
  NCNotificationShortLookViewController* (*openedShortLook)();
};

// Sets the functions. None of them may be null. Call this once, before the first banner is presented.
void setLongLookPresentation(const LongLookPresentation& presentation);
const LongLookPresentation& longLookPresentation();

// Returns whether the long look of this short look is open.
bool showsLongLook(const NCNotificationShortLookViewController* shortLook);

}  // namespace springboard
