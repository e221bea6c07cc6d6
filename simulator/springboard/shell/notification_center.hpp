// The notification center of an unlocked phone: a cover sheet that the user pulls down from the upper edge of the
// screen. Main thread.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/ui_view.hpp"
#include "simulator/springboard/shell/cover_sheet.hpp"

struct NotificationCenterState {
  objc::Ref<SBCoverSheetController> sheet;  // nil while the notification center is closed
};

class SBNotificationCenterController : public objc::Interface<"SBNotificationCenterController", NSObject> {};
template <>
struct objc::StateOf<SBNotificationCenterController> {
  using Type = NotificationCenterState;
};

namespace springboard {

enum class NotificationCenterChange { Animated, Immediate };

// Makes a drag that begins on this view open the notification center. Call this once.
void enableNotificationCenter(UIView* upperEdge);
// Returns whether the notification center is open or the user is opening it with a drag.
bool isNotificationCenterOpen();
// Closes the notification center. Does nothing if it is closed.
void closeNotificationCenter(NotificationCenterChange change);

void defineNotificationCenter();

}  // namespace springboard
