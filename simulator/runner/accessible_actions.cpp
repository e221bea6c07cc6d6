#include "simulator/runner/accessible_actions.hpp"

#include <algorithm>
#include <vector>

#include "simulator/base/foundation_json.hpp"
#include "simulator/runner/finger.hpp"
#include "simulator/uikit/accessibility/screen_elements.hpp"

namespace runner {

namespace {

constexpr int dragSteps = 10;

}  // namespace

bool performAction(std::uint64_t element, std::size_t action) {
  const std::vector<uikit::AccessibleElement> elements = uikit::accessibleElements();
  const auto found = std::ranges::find(elements, element, &uikit::AccessibleElement::identifier);
  if (found == elements.end() || action >= found->actions.size() || isFingerHeld()) return false;
  const CGPoint distance = found->actions[action].drag;
  if (distance == CGPoint{}) {
    tapAt(found->touchPoint);
  } else {
    drag(found->touchPoint, distance, dragSteps, DragEnd::Release);
  }
  return true;
}

bool setText(std::uint64_t element, const std::string& text) {
  UITextField* field = uikit::textFieldWithIdentifier(element);
  NSString* string = base::stringOf(text);
  if (field == nullptr || string == nullptr) return false;
  objc::send<bool, "becomeFirstResponder">(field);
  field->setText(string);
  return true;
}

}  // namespace runner
