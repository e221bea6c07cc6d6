#include "simulator/springboard/services/placeholder_digest.hpp"

#include <cstring>

#include "objc/hook.hpp"
#include "platform/ui_image.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/springboard/services/applications.hpp"

namespace springboard {

namespace {

constexpr CGFloat bestQuality = 100;

// Returns the JPEG data of the placeholder icon, which is created at the first call. Returns nil if the artwork is
// missing.
NSData* placeholderJpeg() {
  static NSData* const jpeg =
      objc::retain(UIImageJPEGRepresentation(iconOf("no.such.application"_ns), bestQuality)).leak();
  return jpeg;
}

bool isPlaceholder(const NSData* data) {
  const NSData* placeholder = placeholderJpeg();
  return placeholder != nullptr && data->length() == placeholder->length() &&
         std::memcmp(data->bytes(), placeholder->bytes(), data->length()) == 0;
}

NSString* digest(objc::Original<NSString*(NSData*)> original, NSData* self) {
  return isPlaceholder(self) ? "543507683f16c45f72e8acbaa3827cbc"_ns : original(self);
}

}  // namespace

void installPlaceholderDigest() {
  using Hook = objc::detail::HookOf<&digest>;
  MSHookMessageEx(NSData::classObject(), objc::selector<"ic_md5">(), Hook::implementation(), &Hook::replaced);
}

}  // namespace springboard
