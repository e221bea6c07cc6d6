#include "simulator/uikit/text/text_boundaries.hpp"

#include <pango/pango.h>

#include <algorithm>
#include <vector>

#include "simulator/uikit/text/utf8.hpp"

namespace uikit {

namespace {

// The maximum length of one character that a user can type, in UTF-16 code units.
constexpr NSUInteger maxCharacterUnits = 256;

std::vector<PangoLogAttr> boundariesOf(const std::string& text) {
  const auto characters = static_cast<std::size_t>(g_utf8_strlen(text.data(), static_cast<gssize>(text.size())));
  std::vector<PangoLogAttr> attributes(characters + 1);
  pango_get_log_attrs(text.data(), static_cast<int>(text.size()), -1, pango_language_from_string("en"),
                      attributes.data(), static_cast<int>(attributes.size()));
  return attributes;
}

NSUInteger unitsOf(gunichar character) { return character > 0xFFFF ? 2 : 1; }

bool isTrailingSurrogate(const NSString* text, NSUInteger position) {
  const auto unit = objc::send<unsigned short, "characterAtIndex:">(text, position);
  return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

NSUInteger startOfCharacterBefore(const NSString* text, NSUInteger position) {
  position = std::min(position, text->length());
  if (position == 0) return 0;
  NSUInteger begin = position - std::min(position, maxCharacterUnits);
  if (begin > 0 && isTrailingSurrogate(text, begin)) ++begin;
  const std::string before = utf8(text, {begin, position - begin});
  const std::vector<PangoLogAttr> boundaries = boundariesOf(before);

  const char* character = before.data() + before.size();
  for (std::size_t index = boundaries.size() - 1; index > 0; --index) {
    character = g_utf8_prev_char(character);
    position -= unitsOf(g_utf8_get_char(character));
    if (boundaries[index - 1].is_cursor_position) break;
  }
  return position;
}

}  // namespace uikit
