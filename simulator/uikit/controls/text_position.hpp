// UITextPosition and UITextRange: positions in the text of a text field, in UTF-16 code units. Main thread only.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/ns_string.hpp"

class UITextPosition : public objc::Interface<"UITextPosition", NSObject> {};

class UITextRange : public objc::Interface<"UITextRange", NSObject> {
 public:
  UITextPosition* start() const { return objc::send<UITextPosition*, "start">(this); }
  UITextPosition* end() const { return objc::send<UITextPosition*, "end">(this); }
};

struct TextPositionState {
  NSUInteger offset = 0;
};
template <>
struct objc::StateOf<UITextPosition> {
  using Type = TextPositionState;
};

struct TextRangeState {
  NSRange range;
};
template <>
struct objc::StateOf<UITextRange> {
  using Type = TextRangeState;
};

namespace uikit {

// The results are autoreleased.
UITextPosition* textPosition(NSUInteger offset);
UITextRange* textRange(NSRange range);

void defineTextPosition();

}  // namespace uikit
