// Lists the accessible elements of the screen. Main thread only.
#pragma once

#include "platform/ui_text_field.hpp"
#include "simulator/uikit/accessibility/accessible_element.hpp"

namespace uikit {

// Returns the elements of the screen that the user can see, in reading order: the windows from front to back, and the
// elements of each window from back to front. A container precedes its elements. Elements that other views cover, and
// containers without visible elements and without actions, are absent. Frames are those after all animations.
std::vector<AccessibleElement> accessibleElements();

// Returns the text field that the element describes, or nil if it is no longer on the screen or not a text field. The
// field is borrowed.
UITextField* textFieldWithIdentifier(std::uint64_t identifier);

}  // namespace uikit
