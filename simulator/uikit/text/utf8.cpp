#include "simulator/uikit/text/utf8.hpp"

#include <algorithm>

namespace uikit {

namespace {

constexpr char32_t replacement = 0xFFFD;

bool isLeadingSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isTrailingSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

// Returns the character at the position and advances the position past it.
char32_t nextCharacter(const std::u16string& units, std::size_t& position) {
  const char16_t unit = units[position++];
  if (isLeadingSurrogate(unit) && position < units.size() && isTrailingSurrogate(units[position]))
    return 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{units[position++]} - 0xDC00);
  return isLeadingSurrogate(unit) || isTrailingSurrogate(unit) ? replacement : unit;
}

void append(std::string& text, char32_t character) {
  const auto byte = [&text](char32_t mark, char32_t bits) { text.push_back(static_cast<char>(mark | bits)); };
  const auto trail = [&](unsigned shift) { byte(0x80, (character >> shift) & 0x3F); };
  if (character < 0x80) {
    byte(0, character);
  } else if (character < 0x800) {
    byte(0xC0, character >> 6);
    trail(0);
  } else if (character < 0x10000) {
    byte(0xE0, character >> 12);
    trail(6);
    trail(0);
  } else {
    byte(0xF0, character >> 18);
    trail(12);
    trail(6);
    trail(0);
  }
}

}  // namespace

std::string utf8(const NSString* text, NSRange range) {
  const NSUInteger length = text->length();
  const NSUInteger begin = std::min(range.location, length);
  std::u16string units(std::min(range.length, length - begin), u'\0');
  objc::send<void, "getCharacters:range:">(text, units.data(), NSRange{begin, units.size()});

  std::string result;
  result.reserve(units.size());
  for (std::size_t position = 0; position < units.size();) append(result, nextCharacter(units, position));
  return result;
}

NSString* wellFormed(NSString* text) {
  if (text == nullptr || objc::send<bool, "canBeConvertedToEncoding:">(text, NSStringEncoding::UTF8)) return text;
  const std::string clean = utf8(text);
  return objc::autorelease(objc::adopt(objc::send<NSString*, "initWithBytes:length:encoding:">(
      objc::allocate<NSString>(), static_cast<const void*>(clean.data()), NSUInteger{clean.size()},
      NSStringEncoding::UTF8)));
}

}  // namespace uikit
