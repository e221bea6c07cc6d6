// UINotificationFeedbackGenerator: haptic feedback that reports the outcome of an action. Main thread only.
#pragma once

#include "platform/ns_object.hpp"

enum class UINotificationFeedbackType : NSInteger { Success = 0 };

class UINotificationFeedbackGenerator : public objc::Interface<"UINotificationFeedbackGenerator", NSObject> {
 public:
  void prepare() { objc::send<void, "prepare">(this); }
  void notificationOccurred(UINotificationFeedbackType type) { objc::send<void, "notificationOccurred:">(this, type); }
};
