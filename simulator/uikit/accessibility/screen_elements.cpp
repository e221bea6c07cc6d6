#include "simulator/uikit/accessibility/screen_elements.hpp"

#include <algorithm>

#include "objc/association.hpp"
#include "objc/autorelease_pool.hpp"
#include "platform/ns_number.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/uikit/accessibility/accessible_properties.hpp"
#include "simulator/uikit/accessibility/visibility.hpp"
#include "simulator/uikit/controls/text_field.hpp"
#include "simulator/uikit/views/window.hpp"

namespace uikit {

namespace {

using Elements = std::vector<AccessibleElement>;
using Identifier = objc::AssociatedProperty<"_accessibleIdentifier", NSNumber*>;

// Returns the number of the view, and assigns the next number to a view that has none.
std::uint64_t identifierOf(const UIView* view) {
  static NSInteger last = 0;
  const id object = objc::detail::toId(view);
  if (Identifier::get(object) == nullptr) Identifier::set(object, NSNumber::numberWithInteger(++last));
  return static_cast<std::uint64_t>(Identifier::get(object)->integerValue());
}

bool isContainer(AccessibleRole role) { return role >= AccessibleRole::Group; }

AccessibleRole roleOf(const UIView* view) { return objc::send<AccessibleRole, "_accessibleRole">(view); }
bool isElement(const UIView* view) { return objc::send<bool, "isAccessibilityElement">(view); }

std::size_t characterCount(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

void addFieldState(const UIView* view, AccessibleElement& element) {
  const auto* field = objc::as<UITextField>(view);
  if (field == nullptr) return;
  const TextFieldState& state = objc::state(field);
  NSString* before = objc::send<NSString*, "substringToIndex:">(state.text.get(), state.selection.location);
  element.caret = characterCount(base::textOf(before));
}

AccessibleElement describe(const UIView* view, std::size_t parent) {
  const auto traits = objc::send<std::uint64_t, "accessibilityTraits">(view);
  AccessibleElement element;
  element.identifier = identifierOf(view);
  element.parent = parent;
  element.role = roleOf(view);
  element.label = base::textOf(objc::send<NSString*, "accessibilityLabel">(view));
  element.value = base::textOf(objc::send<NSString*, "accessibilityValue">(view));
  element.frame = partOnScreen(objc::send<CGRect, "accessibilityFrame">(view));
  element.isEnabled = (traits & AccessibilityTraitNotEnabled) == 0;
  element.isFirstResponder = firstResponder() == view;
  if (element.isEnabled) objc::send<void, "_addAccessibleActions:">(view, static_cast<void*>(&element.actions));
  addFieldState(view, element);
  return element;
}

void collect(const UIView* view, std::size_t parent, Elements& elements);

void collectSubviews(const UIView* view, std::size_t parent, Elements& elements) {
  const std::vector<objc::Ref<UIView>> subviews = record(view).subviews;
  for (const objc::Ref<UIView>& subview : subviews) collect(subview, parent, elements);
}

// Adds a container and its elements.
void collectContainer(const UIView* view, AccessibleElement container, Elements& elements) {
  const std::size_t index = elements.size();
  if (const auto point = touchPointOf(view, container.frame)) {
    container.touchPoint = *point;
  } else {
    container.actions.clear();
  }
  const bool isActionable = !container.actions.empty();
  elements.push_back(std::move(container));
  collectSubviews(view, index, elements);
  if (!isActionable && elements.size() == index + 1) elements.pop_back();
}

void collect(const UIView* view, std::size_t parent, Elements& elements) {
  if (!isVisible(view)) return;
  const bool hasElement = isElement(view);
  if (!hasElement && !isContainer(roleOf(view))) return collectSubviews(view, parent, elements);
  AccessibleElement element = describe(view, parent);
  if (!hasElement) return collectContainer(view, std::move(element), elements);
  const auto point = touchPointOf(view, element.frame);
  if (!point || element.label.empty()) return;
  element.touchPoint = *point;
  elements.push_back(std::move(element));
}

UIView* findView(const UIView* view, std::uint64_t identifier) {
  if (!isVisible(view)) return nullptr;
  if (identifierOf(view) == identifier) return const_cast<UIView*>(view);
  for (const objc::Ref<UIView>& subview : record(view).subviews)
    if (UIView* found = findView(subview, identifier)) return found;
  return nullptr;
}

}  // namespace

std::vector<AccessibleElement> accessibleElements() {
  const objc::AutoreleasePool pool;
  layoutWindows();
  Elements elements;
  const std::vector<UIWindow*> windows = visibleWindows();
  for (auto window = windows.rbegin(); window != windows.rend(); ++window)
    collect(*window, AccessibleElement::noParent, elements);
  return elements;
}

UITextField* textFieldWithIdentifier(std::uint64_t identifier) {
  for (const UIWindow* window : visibleWindows())
    if (UIView* found = findView(window, identifier)) return objc::as<UITextField>(found);
  return nullptr;
}

}  // namespace uikit
