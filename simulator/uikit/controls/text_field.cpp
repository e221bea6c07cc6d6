#include "simulator/uikit/controls/text_field.hpp"

#include <nlohmann/json.hpp>
#include <type_traits>
#include <utility>

#include "simulator/uikit/controls/text_position.hpp"
#include "simulator/uikit/description/text_description.hpp"
#include "simulator/uikit/description/view_tree.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "simulator/uikit/text/font_class.hpp"
#include "simulator/uikit/text/utf8.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view.hpp"

namespace uikit {

namespace {

UITextField* initWithFrame(UITextField* self, CGRect frame) {
  auto* field = objc::sendSuper<"UITextField", UITextField*, "initWithFrame:">(self, frame);
  if (field == nullptr) return nullptr;
  objc::state(field).text = objc::retain(""_ns);
  objc::state(field).font = objc::retain(UIFont::systemFontOfSize(labelFontSize));
  return field;
}

void invalidateText(UITextField* self) {
  objc::state(self).layout.reset();
  invalidateIntrinsicContentSize(self);
  setNeedsDisplay(self);
}

NSString* text(UITextField* self) { return objc::state(self).text; }
// Sets the text. nil clears the text.
void setText(UITextField* self, NSString* text) {
  NSString* wanted = text != nullptr ? wellFormed(text) : ""_ns;
  if (objc::state(self).text->isEqualToString(wanted)) return;
  replaceText(self, wanted, wanted->length());
}

NSString* placeholder(UITextField* self) { return objc::state(self).placeholder; }
void setPlaceholder(UITextField* self, NSString* text) {
  objc::state(self).placeholder = objc::adopt(objc::send<NSString*, "copy">(text));
  invalidateText(self);
}

UIFont* font(UITextField* self) { return objc::state(self).font; }
// Sets the font. nil restores the default font.
void setFont(UITextField* self, UIFont* font) {
  UIFont* wanted = font != nullptr ? font : UIFont::systemFontOfSize(labelFontSize);
  if (objc::state(self).font->isEqual(wanted)) return;
  objc::state(self).font = objc::retain(wanted);
  invalidateText(self);
}

UIColor* textColor(UITextField* self) {
  UIColor* chosen = objc::state(self).textColor;
  return chosen != nullptr ? chosen : labelColor(styleOf(self));
}
void setTextColor(UITextField* self, UIColor* color) {
  objc::state(self).textColor = objc::retain(color);
  setNeedsDisplay(self);
}

template <auto member>
auto value(UITextField* self) {
  return objc::state(self).*member;
}

template <auto member>
void setValue(UITextField* self, std::remove_reference_t<decltype(std::declval<TextFieldState&>().*member)> given) {
  objc::state(self).*member = given;
  invalidateText(self);
}

void describe(UITextField* self, void* description) {
  objc::sendSuper<"UITextField", void, "_describe:">(self, description);
  nlohmann::ordered_json& node = descriptionAt(description);
  const TextFieldState& state = objc::state(self);
  node["text"] = utf8(state.text);
  if (state.marked.length > 0) node["markedText"] = utf8(state.text, state.marked);
  if (state.placeholder != nullptr) node["placeholder"] = utf8(state.placeholder);
  node["font"] = describeFont(fontOf(state.font));
  node["alignment"] = nameOf(state.alignment);
  node["color"] = describeColor(colorOf(textColor(self)));
}

}  // namespace

void replaceText(UITextField* field, NSString* text, NSUInteger caret) {
  TextFieldState& state = objc::state(field);
  state.text = objc::adopt(objc::send<NSString*, "copy">(text));
  state.selection = {caret, 0};
  state.marked = {};
  invalidateText(field);
}

void defineTextField() {
  using State = TextFieldState;
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"initWithFrame:", &initWithFrame>(),
      objc::method<"text", &text>(),
      objc::method<"setText:", &setText>(),
      objc::method<"placeholder", &placeholder>(),
      objc::method<"setPlaceholder:", &setPlaceholder>(),
      objc::method<"font", &font>(),
      objc::method<"setFont:", &setFont>(),
      objc::method<"textColor", &textColor>(),
      objc::method<"setTextColor:", &setTextColor>(),
      objc::method<"textAlignment", &value<&State::alignment>>(),
      objc::method<"setTextAlignment:", &setValue<&State::alignment>>(),
      objc::method<"borderStyle", &value<&State::borderStyle>>(),
      objc::method<"setBorderStyle:", &setValue<&State::borderStyle>>(),
      objc::method<"keyboardType", &value<&State::keyboardType>>(),
      objc::method<"setKeyboardType:", &setValue<&State::keyboardType>>(),
      objc::method<"returnKeyType", &value<&State::returnKeyType>>(),
      objc::method<"setReturnKeyType:", &setValue<&State::returnKeyType>>(),
      objc::method<"enablesReturnKeyAutomatically", &value<&State::enablesReturnKeyAutomatically>>(),
      objc::method<"setEnablesReturnKeyAutomatically:", &setValue<&State::enablesReturnKeyAutomatically>>(),
      objc::method<"_describe:", &describe>(),
  };
  defineTextPosition();
  objc::defineClassWithState<UITextField>(methods);
  objc::addCategory(UITextField::classObject(), textFieldEditingMethods());
  objc::addCategory(UITextField::classObject(), textFieldInputMethods());
  objc::addCategory(UITextField::classObject(), textFieldDrawingMethods());
}

}  // namespace uikit
