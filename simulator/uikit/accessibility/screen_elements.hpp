// Lists the accessible elements of the screen. Main thread only.
#pragma once

#include "platform/ui_text_field.hpp"
#include "simulator/uikit/accessibility/accessible_element.hpp"

namespace uikit {

// Returns the elements of the screen that the user can see, in reading order: the windows from front to back, and the
// elements of each window from back to front. A container precedes its elements. Omits elements that other views cover,
// and containers that have neither visible elements nor actions. The frames are those after all animations.
std::vector<AccessibleElement> accessibleElements();

// Returns the text field with this identifier, or nil if the view is no longer on the screen or is not a text field.
// The field is borrowed.
UITextField* textFieldWithIdentifier(std::uint64_t identifier);

}  // namespace uikit
