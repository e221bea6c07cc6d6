#include "simulator/runner/accessible_actions.hpp"

#include <algorithm>
#include <vector>

#include "objc/autorelease_pool.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/runner/finger.hpp"
#include "simulator/springboard/long_look/long_look_presenter.hpp"
#include "simulator/springboard/shell/springboard_application.hpp"
#include "simulator/uikit/accessibility/screen_elements.hpp"
#include "simulator/uikit/views/window.hpp"

namespace runner {

namespace {

constexpr int dragSteps = 10;

}  // namespace

bool performAction(std::uint64_t element, std::size_t action) {
  const objc::AutoreleasePool pool;
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
  const objc::AutoreleasePool pool;
  UITextField* field = uikit::textFieldWithIdentifier(element);
  NSString* string = base::stringOf(text);
  if (field == nullptr || string == nullptr) return false;
  objc::send<bool, "becomeFirstResponder">(field);
  field->setText(string);
  return true;
}

void goBack() {
  const objc::AutoreleasePool pool;
  if (UIResponder* responder = uikit::firstResponder(); respondsTo<"insertText:">(responder)) {
    objc::send<bool, "resignFirstResponder">(responder);
  } else if (springboard::openedShortLook() != nullptr) {
    springboard::dismissLongLook(springboard::LongLookChange::Animated);
  } else {
    springboard::pressButton(springboard::homeButtonPress, 0);
  }
}

}  // namespace runner
