#include "library/controller/application_icon.hpp"

#include "library/utilities/ns_string_md5.hpp"

namespace {

// The platform's numbers of the icon formats, in order of preference.
constexpr int iconFormats[] = {8, 2, 0};
// The placeholder is recognized by the digest of its JPEG representation.
constexpr CGFloat placeholderQuality = 100;
NSString* placeholderDigest() { return "543507683f16c45f72e8acbaa3827cbc"_ns; }

bool isPlaceholder(UIImage* icon) {
  return md5Of(UIImageJPEGRepresentation(icon, placeholderQuality))->isEqualToString(placeholderDigest());
}

}  // namespace

UIImage* applicationIcon(BannerController* controller, NCNotificationShortLookView* content) {
  UIImage* icon = nullptr;
  for (const int format : iconFormats) {
    icon = UIImage::applicationIcon(controller->getBundleId(), format);
    if (icon != nullptr) break;
  }
  if (icon != nullptr && !isPlaceholder(icon)) return icon;
  return objc::as<UIImage>(content->icons()->firstObject());
}
