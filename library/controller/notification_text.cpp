#include "library/controller/notification_text.hpp"

#include "platform/ui_device.hpp"

NSString* bodyText(NCNotificationShortLookView* content) {
  if (NSString* message = presentText(content->secondaryText())) return message;
  return systemVersionIsBelow("12.0"_ns) ? nullptr : content->summaryText();
}
