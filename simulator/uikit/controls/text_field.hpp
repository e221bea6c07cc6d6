// The state of a UITextField, and the functions that its source files share. Main thread only.
#pragma once

#include <optional>
#include <span>

#include "objc/class_definition.hpp"
#include "platform/ui_label.hpp"
#include "platform/ui_text_field.hpp"
#include "simulator/drawing/text_layout.hpp"

struct TextFieldState {
  objc::Ref<NSString> text;  // never nil
  objc::Ref<NSString> placeholder;
  objc::Ref<UIFont> font;
  objc::Ref<UIColor> textColor;  // if nil, the text has the label color of the appearance
  NSTextAlignment alignment = NSTextAlignment::Natural;
  UITextBorderStyle borderStyle = UITextBorderStyle::None;
  UIKeyboardType keyboardType = UIKeyboardType::Default;
  UIReturnKeyType returnKeyType{};
  bool enablesReturnKeyAutomatically = false;

  // The selection, in UTF-16 code units. An empty selection is the position of the caret. The range is always inside
  // the text.
  NSRange selection;
  // The marked text, which is the unfinished text of an input method. The range is empty if there is none.
  NSRange marked;
  // The distance, in points, by which the text is scrolled to the left. Scrolling keeps the caret visible.
  double scrollOffset = 0;
  std::optional<drawing::TextLayout> layout;  // created at first use
};
template <>
struct objc::StateOf<UITextField> {
  using Type = TextFieldState;
};

namespace uikit {

// Replaces the text and sets the caret to this position, in UTF-16 code units. No text is marked afterwards. Sends no
// control events.
void replaceText(UITextField* field, NSString* text, NSUInteger caret);
// Makes the marked text a part of the ordinary text.
void unmarkText(UITextField* field);
// Returns the range that typed text replaces: the marked text, or the selection if there is no marked text.
NSRange replacedByInput(const UITextField* field);
// Replaces each line break with a space.
NSString* withoutLineBreaks(NSString* text);
// Returns the rectangle of a caret at this position, in coordinates of the field.
CGRect caretRectangle(UITextField* field, NSUInteger position);

// The methods of UITextField. Each source file defines one list.
std::span<const objc::MethodEntry> textFieldEditingMethods();
std::span<const objc::MethodEntry> textFieldInputMethods();
std::span<const objc::MethodEntry> textFieldDrawingMethods();

void defineTextField();

}  // namespace uikit
