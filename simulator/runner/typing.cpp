#include "simulator/runner/typing.hpp"

#include <algorithm>
#include <string_view>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_string.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/uikit/controls/text_position.hpp"
#include "simulator/uikit/text/utf8.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "simulator/uikit/views/window.hpp"

namespace runner {

namespace {

TypingResult insert(NSString* text) {
  UIResponder* responder = uikit::firstResponder();
  if (!respondsTo<"insertText:">(responder)) return TypingResult::NoReceiver;
  objc::send<void, "insertText:">(responder, text);
  return TypingResult::Received;
}

TypingResult deleteBackward() {
  UIResponder* responder = uikit::firstResponder();
  if (!respondsTo<"deleteBackward">(responder)) return TypingResult::NoReceiver;
  objc::send<void, "deleteBackward">(responder);
  return TypingResult::Received;
}

// Returns the first responder if it supports input methods. Otherwise, returns nil.
UIView* textInput() {
  UIResponder* responder = uikit::firstResponder();
  return respondsTo<"setMarkedText:selectedRange:">(responder) ? objc::as<UIView>(responder) : nullptr;
}

NSString* textBetween(UIView* input, UITextPosition* from, UITextPosition* to) {
  auto* const range = objc::send<UITextRange*, "textRangeFromPosition:toPosition:">(input, from, to);
  return objc::send<NSString*, "textInRange:">(input, range);
}

// The texts before and after the marked text, or before and after the caret if there is no marked text.
struct TextParts {
  UITextPosition* startOfSecond;
  std::string first;
  std::string second;
};

TextParts partsOf(UIView* input) {
  const auto* marked = objc::send<UITextRange*, "markedTextRange">(input);
  const auto* selected = objc::send<UITextRange*, "selectedTextRange">(input);
  UITextPosition* const endOfFirst = marked == nullptr ? selected->end() : marked->start();
  UITextPosition* const startOfSecond = marked == nullptr ? selected->end() : marked->end();
  auto* const beginning = objc::send<UITextPosition*, "beginningOfDocument">(input);
  auto* const end = objc::send<UITextPosition*, "endOfDocument">(input);
  return {startOfSecond, uikit::utf8(textBetween(input, beginning, endOfFirst)),
          uikit::utf8(textBetween(input, startOfSecond, end))};
}

bool isStartOfCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

std::ptrdiff_t characterCount(std::string_view text) { return std::ranges::count_if(text, &isStartOfCharacter); }

// Returns the number of UTF-16 code units that the first `characters` characters of the text occupy.
NSInteger unitCount(std::string_view text, std::ptrdiff_t characters) {
  constexpr unsigned char firstByteOfSurrogates = 0xF0;
  NSInteger units = 0;
  for (const char byte : text) {
    if (!isStartOfCharacter(byte)) continue;
    if (characters-- <= 0) break;
    units += static_cast<unsigned char>(byte) >= firstByteOfSurrogates ? 2 : 1;
  }
  return units;
}

// Deletes the characters from `first` up to, but not including, `last` in a part of the text. `begin` is the position
// of the part.
void deleteCharacters(UIView* input, UITextPosition* begin, std::string_view part, std::ptrdiff_t first,
                      std::ptrdiff_t last) {
  if (first >= last) return;
  const auto position = [&](std::ptrdiff_t characters) {
    return objc::send<UITextPosition*, "positionFromPosition:offset:">(input, begin, unitCount(part, characters));
  };
  auto* const range =
      objc::send<UITextRange*, "textRangeFromPosition:toPosition:">(input, position(first), position(last));
  objc::send<void, "replaceRange:withText:">(input, range, ""_ns);
}

}  // namespace

TypingResult typeText(const std::string& text) { return insert(base::stringOf(text)); }

TypingResult pressKey(Key key) { return key == Key::Return ? insert("\n"_ns) : deleteBackward(); }

TypingResult setMarkedText(const std::string& text, std::size_t caret) {
  const objc::AutoreleasePool pool;
  UIView* input = textInput();
  NSString* marked = base::stringOf(text);
  NSString* beforeCaret = base::stringOf(std::string_view(text).substr(0, caret));
  if (input == nullptr || marked == nullptr) return TypingResult::NoReceiver;
  const NSRange selected = {beforeCaret == nullptr ? marked->length() : beforeCaret->length(), 0};
  objc::send<void, "setMarkedText:selectedRange:">(input, marked, selected);
  return TypingResult::Received;
}

bool hasMarkedText() {
  const objc::AutoreleasePool pool;
  UIView* input = textInput();
  return input != nullptr && objc::send<UITextRange*, "markedTextRange">(input) != nullptr;
}

std::optional<SurroundingText> surroundingText() {
  const objc::AutoreleasePool pool;
  UIView* input = textInput();
  if (input == nullptr) return std::nullopt;
  const TextParts parts = partsOf(input);
  return SurroundingText{parts.first + parts.second, parts.first.size()};
}

void deleteSurroundingText(std::ptrdiff_t offset, std::size_t count) {
  const objc::AutoreleasePool pool;
  UIView* input = textInput();
  if (input == nullptr) return;
  const TextParts parts = partsOf(input);
  const std::ptrdiff_t caret = characterCount(parts.first);
  const std::ptrdiff_t length = caret + characterCount(parts.second);
  const std::ptrdiff_t first = std::clamp<std::ptrdiff_t>(caret + offset, 0, length);
  const std::ptrdiff_t last = first + std::min(static_cast<std::ptrdiff_t>(count), length - first);
  // Deletes in the second part first, because deleting in the first part changes the positions in the second part.
  deleteCharacters(input, parts.startOfSecond, parts.second, std::max(first, caret) - caret, last - caret);
  auto* const beginning = objc::send<UITextPosition*, "beginningOfDocument">(input);
  deleteCharacters(input, beginning, parts.first, first, std::min(last, caret));
}

std::optional<CGRect> caretRectangle() {
  const objc::AutoreleasePool pool;
  UIView* input = textInput();
  if (input == nullptr) return std::nullopt;
  auto* const end = objc::send<UITextRange*, "selectedTextRange">(input)->end();
  return uikit::convertRect(objc::send<CGRect, "caretRectForPosition:">(input, end), input, nullptr);
}

}  // namespace runner
