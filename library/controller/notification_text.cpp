#include "library/controller/notification_text.hpp"

#include "library/utilities/empty_text.hpp"
#include "platform/ui_device.hpp"

namespace {

objc::Ref<NSString> copyOf(NSString* text) {
  if (text == nullptr) return nullptr;
  return NSString::decoded(text->dataUsingEncoding(NSStringEncoding::Unicode), NSStringEncoding::Unicode);
}

}  // namespace

BannerTexts bannerTexts(NCNotificationShortLookView* content) {
  return {copyOf(nilIfEmpty(headerText(content))), copyOf(subHeaderText(content)), copyOf(bodyText(content))};
}

NSString* headerText(NCNotificationShortLookView* content) {
  NSString* title = content->primaryText();
  return isNilOrEmpty(title) ? content->primarySubtitleText() : title;
}

NSString* subHeaderText(NCNotificationShortLookView* content) {
  return isNilOrEmpty(content->primaryText()) ? nullptr : nilIfEmpty(content->primarySubtitleText());
}

NSString* bodyText(NCNotificationShortLookView* content) {
  if (NSString* message = nilIfEmpty(content->secondaryText())) return message;
  return systemVersionIsBelow("12.0"_ns) ? nullptr : content->summaryText();
}
