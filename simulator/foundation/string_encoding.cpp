#include "simulator/foundation/string_encoding.hpp"

#include <vector>

#include "objc/hook.hpp"
#include "platform/ns_data.hpp"
#include "simulator/foundation/hook_function.hpp"

namespace foundation {

namespace {

constexpr char16_t byteOrderMark = 0xfeff;

NSData* unicodeData(const NSString* text) {
  const NSUInteger length = text->length();
  std::vector<char16_t> units(length + 1);
  units[0] = byteOrderMark;
  objc::send<void, "getCharacters:range:">(text, static_cast<void*>(units.data() + 1), NSRange{0, length});
  return NSData::dataWithBytes(units.data(), units.size() * sizeof units[0]);
}

using Original = objc::Original<NSData*(NSString*, NSStringEncoding)>;

NSData* dataUsingEncoding(Original original, NSString* self, NSStringEncoding encoding) {
  return encoding == NSStringEncoding::Unicode ? unicodeData(self) : original(self, encoding);
}

}  // namespace

void installStringEncoding() {
  using Hook = objc::detail::HookOf<&dataUsingEncoding>;
  MSHookMessageEx(NSString::classObject(), objc::selector<"dataUsingEncoding:">(), Hook::implementation(),
                  &Hook::replaced);
}

}  // namespace foundation
