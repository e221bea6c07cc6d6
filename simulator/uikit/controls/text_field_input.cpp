// The methods of the protocol UITextInput, with which an input method edits the text of a text field. The unfinished
// text of the input method is the marked text. It is a part of the field's text, and the field underlines it.
#include <algorithm>
#include <optional>

#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/controls/text_field.hpp"
#include "simulator/uikit/controls/text_position.hpp"
#include "simulator/uikit/text/utf8.hpp"
#include "simulator/uikit/views/view.hpp"

namespace uikit {

namespace {

NSUInteger endOf(NSRange range) { return range.location + range.length; }

// Returns the part of the range that is inside a text of this length.
NSRange clamped(NSRange range, NSUInteger length) {
  const NSUInteger location = std::min(range.location, length);
  return {location, std::min(range.length, length - location)};
}

NSUInteger offsetOf(UITextPosition* position, const UITextField* field) {
  return position == nullptr ? 0 : std::min(objc::state(position).offset, objc::state(field).text->length());
}

UITextRange* markedTextRange(UITextField* self) {
  const NSRange marked = objc::state(self).marked;
  return marked.length == 0 ? nullptr : textRange(marked);
}

// Replaces the marked text, or the selection if there is no marked text. `selected` is a range of the new text. Without
// marked text, an empty text has no effect.
void setMarkedText(UITextField* self, NSString* text, NSRange selected) {
  const TextFieldState& state = objc::state(self);
  NSString* marked = text == nullptr ? ""_ns : withoutLineBreaks(wellFormed(text));
  if (!objc::state<UIControl>(self).enabled || (state.marked.length == 0 && marked->length() == 0)) return;
  const NSRange replaced = replacedByInput(self);
  replaceText(self, state.text->stringByReplacingCharactersInRange(replaced, marked), replaced.location);
  const NSRange inside = clamped(selected, marked->length());
  objc::state(self).marked = {replaced.location, marked->length()};
  objc::state(self).selection = {replaced.location + inside.location, inside.length};
  sendActions(self, editingChanged);
}

UITextRange* selectedTextRange(UITextField* self) { return textRange(objc::state(self).selection); }
void setSelectedTextRange(UITextField* self, UITextRange* range) {
  if (range != nullptr) objc::send<void, "_setSelectedRange:">(self, objc::state(range).range);
}

NSString* textInRange(UITextField* self, UITextRange* range) {
  if (range == nullptr) return nullptr;
  NSString* text = objc::state(self).text;
  return text->substringWithRange(clamped(objc::state(range).range, text->length()));
}

// Returns the range of the same characters after a replacement, or nothing if some of them were replaced.
std::optional<NSRange> rangeAfterReplacement(NSRange range, NSRange replaced, NSUInteger insertedLength) {
  if (endOf(replaced) <= range.location)
    return NSRange{range.location - replaced.length + insertedLength, range.length};
  if (replaced.location >= endOf(range)) return range;
  return std::nullopt;
}

// Replaces a part of the text. Selected and marked text outside of this part remains selected and marked.
void replaceRange(UITextField* self, UITextRange* range, NSString* replacement) {
  if (range == nullptr || !objc::state<UIControl>(self).enabled) return;
  const TextFieldState& state = objc::state(self);
  const NSRange marked = state.marked;
  const NSRange selection = state.selection;
  const NSRange replaced = clamped(objc::state(range).range, state.text->length());
  NSString* inserted = replacement == nullptr ? ""_ns : withoutLineBreaks(wellFormed(replacement));
  replaceText(self, state.text->stringByReplacingCharactersInRange(replaced, inserted),
              replaced.location + inserted->length());
  if (const auto moved = rangeAfterReplacement(selection, replaced, inserted->length()))
    objc::state(self).selection = *moved;
  if (marked.length > 0)
    objc::state(self).marked = rangeAfterReplacement(marked, replaced, inserted->length()).value_or(NSRange{});
  sendActions(self, editingChanged);
}

UITextPosition* beginningOfDocument(UITextField*) { return textPosition(0); }
UITextPosition* endOfDocument(UITextField* self) { return textPosition(objc::state(self).text->length()); }

NSInteger offsetFromPosition(UITextField* self, UITextPosition* from, UITextPosition* to) {
  return static_cast<NSInteger>(offsetOf(to, self)) - static_cast<NSInteger>(offsetOf(from, self));
}

// Returns nil if the new position is outside of the text.
UITextPosition* positionFromPosition(UITextField* self, UITextPosition* from, NSInteger distance) {
  const auto before = static_cast<NSInteger>(offsetOf(from, self));
  const auto length = static_cast<NSInteger>(objc::state(self).text->length());
  if (distance < -before || distance > length - before) return nullptr;
  return textPosition(static_cast<NSUInteger>(before + distance));
}

UITextRange* textRangeFromPosition(UITextField* self, UITextPosition* from, UITextPosition* to) {
  const auto [first, last] = std::minmax({offsetOf(from, self), offsetOf(to, self)});
  return textRange({first, last - first});
}

CGRect caretRectForPosition(UITextField* self, UITextPosition* position) {
  return caretRectangle(self, offsetOf(position, self));
}

}  // namespace

std::span<const objc::MethodEntry> textFieldInputMethods() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"markedTextRange", &markedTextRange>(),
      objc::method<"setMarkedText:selectedRange:", &setMarkedText>(),
      objc::method<"unmarkText", &unmarkText>(),
      objc::method<"selectedTextRange", &selectedTextRange>(),
      objc::method<"setSelectedTextRange:", &setSelectedTextRange>(),
      objc::method<"textInRange:", &textInRange>(),
      objc::method<"replaceRange:withText:", &replaceRange>(),
      objc::method<"beginningOfDocument", &beginningOfDocument>(),
      objc::method<"endOfDocument", &endOfDocument>(),
      objc::method<"offsetFromPosition:toPosition:", &offsetFromPosition>(),
      objc::method<"positionFromPosition:offset:", &positionFromPosition>(),
      objc::method<"textRangeFromPosition:toPosition:", &textRangeFromPosition>(),
      objc::method<"caretRectForPosition:", &caretRectForPosition>(),
  };
  return methods;
}

}  // namespace uikit
