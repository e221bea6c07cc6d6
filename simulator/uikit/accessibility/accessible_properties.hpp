// The messages with which views describe themselves to assistive technologies. The toolkit adds these messages to
// UIView. Classes can override them. Main thread only.
//   -isAccessibilityElement, -setIsAccessibilityElement:   whether the view is an element, whose subviews are not
//                                   elements. The default is false for UIView, and true for controls and labels.
//   -accessibilityLabel, -setAccessibilityLabel:   the name of the element. The default is the title or the text that
//                                   the view shows.
//   -accessibilityValue             the text of a text field; nil for other views
//   -accessibilityTraits, -setAccessibilityTraits:   a set of AccessibilityTraits
//   -accessibilityFrame             the frame on the screen
// The following messages are the toolkit's own:
//   -_accessibleRole                returns an AccessibleRole. The default depends on the traits. A container must
//                                   override it.
//   -_addAccessibleActions:(void*)  adds the gestures to which the view responds to a vector of AccessibleAction. The
//                                   default is a tap for roles that users can activate.
#pragma once

#include <string>
#include <vector>

#include "platform/ns_string.hpp"
#include "simulator/uikit/accessibility/accessible_element.hpp"
#include "simulator/uikit/views/view.hpp"

namespace uikit {

// The values are those of the platform.
enum AccessibilityTraits : std::uint64_t {
  AccessibilityTraitButton = 1 << 0,
  AccessibilityTraitImage = 1 << 2,
  AccessibilityTraitKeyboardKey = 1 << 5,
  AccessibilityTraitStaticText = 1 << 6,
  AccessibilityTraitNotEnabled = 1 << 8,
};

// Makes the view an element with this name. A nil name selects the default.
void makeAccessible(UIView* view, AccessibilityTraits traits, NSString* label);

// Returns the texts of the visible labels in the view, from back to front. Omits the texts of controls.
std::vector<std::string> textsIn(const UIView* view);
// Returns the texts, separated by commas. Omits empty texts.
std::string joined(const std::vector<std::string>& texts);

inline std::vector<AccessibleAction>& accessibleActionsAt(void* pointer) {
  return *static_cast<std::vector<AccessibleAction>*>(pointer);
}

void defineAccessibility();

}  // namespace uikit
