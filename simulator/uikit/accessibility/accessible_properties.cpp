#include "simulator/uikit/accessibility/accessible_properties.hpp"

#include "objc/association.hpp"
#include "platform/ns_number.hpp"
#include "platform/ui_button.hpp"
#include "platform/ui_label.hpp"
#include "platform/ui_text_field.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/uikit/accessibility/visibility.hpp"
#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/keyboard/keyboard_key.hpp"
#include "simulator/uikit/views/view_geometry.hpp"

namespace uikit {

namespace {

using Label = objc::AssociatedProperty<"accessibilityLabel", NSString*>;
using Traits = objc::AssociatedProperty<"accessibilityTraits", NSNumber*>;
using IsElement = objc::AssociatedProperty<"isAccessibilityElement", NSNumber*>;

id objectOf(const UIView* view) { return objc::detail::toId(view); }

// Returns the value that was set, or the default if none was set.
bool isElementOr(const UIView* view, bool otherwise) {
  const NSNumber* chosen = IsElement::get(objectOf(view));
  return chosen == nullptr ? otherwise : chosen->boolValue();
}
std::uint64_t traitsOr(const UIView* view, std::uint64_t otherwise) {
  const NSNumber* chosen = Traits::get(objectOf(view));
  return chosen == nullptr ? otherwise : static_cast<std::uint64_t>(chosen->integerValue());
}
NSString* labelOr(const UIView* view, NSString* otherwise) {
  NSString* chosen = Label::get(objectOf(view));
  return chosen == nullptr ? otherwise : chosen;
}

void setIsElement(UIView* self, bool is) { IsElement::set(objectOf(self), NSNumber::numberWithBool(is)); }
void setTraits(UIView* self, std::uint64_t traits) {
  Traits::set(objectOf(self), NSNumber::numberWithInteger(static_cast<NSInteger>(traits)));
}
void setLabel(UIView* self, NSString* label) { Label::set(objectOf(self), label); }

bool viewIsElement(UIView* self) { return isElementOr(self, false); }
NSString* viewLabel(UIView* self) { return labelOr(self, nullptr); }
std::uint64_t viewTraits(UIView* self) { return traitsOr(self, 0); }
NSString* viewValue(UIView*) { return nullptr; }
CGRect viewFrame(UIView* self) { return frameOnScreen(self); }

AccessibleRole viewRole(UIView* self) {
  const auto traits = objc::send<std::uint64_t, "accessibilityTraits">(self);
  if ((traits & AccessibilityTraitKeyboardKey) != 0) return AccessibleRole::Key;
  if ((traits & AccessibilityTraitImage) != 0) return AccessibleRole::Icon;
  if ((traits & AccessibilityTraitButton) != 0) return AccessibleRole::Button;
  return (traits & AccessibilityTraitStaticText) != 0 ? AccessibleRole::Text : AccessibleRole::None;
}

void addViewActions(UIView* self, void* actions) {
  const auto role = objc::send<AccessibleRole, "_accessibleRole">(self);
  const bool isActivated = role == AccessibleRole::Button || role == AccessibleRole::Icon ||
                           role == AccessibleRole::TextField || role == AccessibleRole::Key ||
                           role == AccessibleRole::ListItem;
  if (isActivated) accessibleActionsAt(actions).push_back({"activate"});
}

bool labelIsElement(UIView* self) { return isElementOr(self, true); }
NSString* labelLabel(UILabel* self) { return labelOr(self, self->text()); }
std::uint64_t labelTraits(UIView* self) { return traitsOr(self, AccessibilityTraitStaticText); }

bool controlIsElement(UIView* self) { return isElementOr(self, true); }
NSString* controlLabel(UIView* self) { return labelOr(self, base::stringOf(joined(textsIn(self)))); }
std::uint64_t controlTraits(UIControl* self) {
  const std::uint64_t traits = traitsOr(self, AccessibilityTraitButton);
  return objc::state(self).enabled ? traits : traits | AccessibilityTraitNotEnabled;
}

NSString* fieldLabel(UITextField* self) {
  NSString* placeholder = objc::send<NSString*, "placeholder">(self);
  return labelOr(self, placeholder != nullptr ? placeholder : "Reply"_ns);
}
NSString* fieldValue(UITextField* self) { return self->text(); }
AccessibleRole fieldRole(UITextField*) { return AccessibleRole::TextField; }

struct KeyName {
  KeyRole role;
  const char* name;
};

// The names of the keys that show an icon or an abbreviation.
constexpr KeyName keyNames[] = {
    {KeyRole::Shift, "shift"}, {KeyRole::Backspace, "delete"},   {KeyRole::Emoji, "emoji"},
    {KeyRole::Globe, "globe"}, {KeyRole::Microphone, "dictate"},
};

NSString* keyLabel(UIKBKeyView* self) {
  const Key& key = objc::state(self).key;
  for (const KeyName& each : keyNames)
    if (each.role == key.role) return base::stringOf(each.name);
  return base::stringOf(key.label);
}
std::uint64_t keyTraits(UIView*) { return AccessibilityTraitKeyboardKey; }

AccessibleRole keyboardRole(UIView*) { return AccessibleRole::Keyboard; }
NSString* keyboardLabel(UIView*) { return "Keyboard"_ns; }

void appendTexts(const UIView* view, std::vector<std::string>& texts) {
  if (!isVisible(view)) return;
  if (const auto* label = objc::as<UILabel>(view)) return texts.push_back(base::textOf(label->text()));
  for (const objc::Ref<UIView>& subview : record(view).subviews)
    if (objc::as<UIControl>(subview.get()) == nullptr) appendTexts(subview, texts);
}

void addToView() {
  static constexpr objc::MethodEntry view[] = {
      objc::method<"isAccessibilityElement", &viewIsElement>(),
      objc::method<"setIsAccessibilityElement:", &setIsElement>(),
      objc::method<"accessibilityLabel", &viewLabel>(),
      objc::method<"setAccessibilityLabel:", &setLabel>(),
      objc::method<"accessibilityTraits", &viewTraits>(),
      objc::method<"setAccessibilityTraits:", &setTraits>(),
      objc::method<"accessibilityValue", &viewValue>(),
      objc::method<"accessibilityFrame", &viewFrame>(),
      objc::method<"_accessibleRole", &viewRole>(),
      objc::method<"_addAccessibleActions:", &addViewActions>(),
  };
  objc::addCategory(UIView::classObject(), view);
}

void addToControls() {
  static constexpr objc::MethodEntry label[] = {
      objc::method<"isAccessibilityElement", &labelIsElement>(),
      objc::method<"accessibilityLabel", &labelLabel>(),
      objc::method<"accessibilityTraits", &labelTraits>(),
  };
  static constexpr objc::MethodEntry control[] = {
      objc::method<"isAccessibilityElement", &controlIsElement>(),
      objc::method<"accessibilityLabel", &controlLabel>(),
      objc::method<"accessibilityTraits", &controlTraits>(),
  };
  static constexpr objc::MethodEntry field[] = {
      objc::method<"accessibilityLabel", &fieldLabel>(),
      objc::method<"accessibilityValue", &fieldValue>(),
      objc::method<"_accessibleRole", &fieldRole>(),
  };
  objc::addCategory(UILabel::classObject(), label);
  objc::addCategory(UIControl::classObject(), control);
  objc::addCategory(UITextField::classObject(), field);
}

void addToKeyboard() {
  static constexpr objc::MethodEntry key[] = {
      objc::method<"accessibilityLabel", &keyLabel>(),
      objc::method<"accessibilityTraits", &keyTraits>(),
  };
  static constexpr objc::MethodEntry keyboard[] = {
      objc::method<"accessibilityLabel", &keyboardLabel>(),
      objc::method<"_accessibleRole", &keyboardRole>(),
  };
  objc::addCategory(UIKBKeyView::classObject(), key);
  objc::addCategory(objc::lookUpClass<"UIRemoteKeyboardWindow">(), keyboard);
}

}  // namespace

void makeAccessible(UIView* view, AccessibilityTraits traits, NSString* label) {
  setIsElement(view, true);
  setTraits(view, traits);
  setLabel(view, label);
}

std::vector<std::string> textsIn(const UIView* view) {
  std::vector<std::string> texts;
  for (const objc::Ref<UIView>& subview : record(view).subviews) appendTexts(subview, texts);
  return texts;
}

std::string joined(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts)
    if (!text.empty()) list += (list.empty() ? "" : ", ") + text;
  return list;
}

void defineAccessibility() {
  addToView();
  addToControls();
  addToKeyboard();
}

}  // namespace uikit
