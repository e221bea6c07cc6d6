// UITextField's state, and what its parts share.
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
  objc::Ref<UIColor> textColor;  // nil: that of the appearance
  NSTextAlignment alignment = NSTextAlignment::Natural;
  UITextBorderStyle borderStyle = UITextBorderStyle::None;
  UIKeyboardType keyboardType = UIKeyboardType::Default;
  UIReturnKeyType returnKeyType{};
  bool enablesReturnKeyAutomatically = false;

  // What is selected, in UTF-16 units; of no length the caret. Always inside the text.
  NSRange selection;
  // How far the text has moved to the left to keep the caret in view, in points.
  double scrollOffset = 0;
  std::optional<drawing::TextLayout> layout;  // made when needed
};
template <>
struct objc::StateOf<UITextField> {
  using Type = TextFieldState;
};

namespace uikit {

// Replaces the text and puts the caret there; tells nobody.
void replaceText(UITextField* field, NSString* text, NSUInteger caret);

// UITextField's methods, one list a concern.
std::span<const objc::MethodEntry> textFieldEditingMethods();
std::span<const objc::MethodEntry> textFieldDrawingMethods();

void defineTextField();

}  // namespace uikit
