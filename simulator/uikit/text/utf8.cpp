#include "simulator/uikit/text/utf8.hpp"

#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace uikit {

namespace {

// The maximum length of a text in UTF-16 code units. ICU counts bytes in 32 bits, and a UTF-16 code unit becomes at
// most three bytes.
constexpr NSUInteger maxUnits = std::numeric_limits<std::int32_t>::max() / 3;

}  // namespace

std::string utf8(const NSString* text, NSRange range) {
  const NSUInteger length = text->length();
  const NSUInteger begin = std::min(range.location, length);
  std::u16string units(std::min({range.length, length - begin, maxUnits}), u'\0');
  objc::send<void, "getCharacters:range:">(text, units.data(), NSRange{begin, units.size()});

  std::string result;
  return icu::UnicodeString(/*isTerminated=*/false, units.data(), static_cast<std::int32_t>(units.size()))
      .toUTF8String(result);
}

NSString* wellFormed(NSString* text) {
  if (text == nullptr || objc::send<bool, "canBeConvertedToEncoding:">(text, NSStringEncoding::UTF8)) return text;
  const std::string clean = utf8(text);
  return objc::autorelease(objc::adopt(objc::send<NSString*, "initWithBytes:length:encoding:">(
      objc::allocate<NSString>(), static_cast<const void*>(clean.data()), NSUInteger{clean.size()},
      NSStringEncoding::UTF8)));
}

}  // namespace uikit
