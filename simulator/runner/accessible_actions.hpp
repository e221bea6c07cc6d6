// Performs the actions of the accessible elements on the screen, like a finger and a keyboard. Main thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace runner {

// Performs the action at this index of the element's actions. Returns false if the element is no longer on the screen,
// if it has no such action, or if a finger is on the screen.
bool performAction(std::uint64_t element, std::size_t action);

// Replaces the text of a text field by UTF-8 text, and makes the field the first responder. Returns false if the
// element is not a text field on the screen.
bool setText(std::uint64_t element, const std::string& text);

// Goes back one step: hides the keyboard if it is shown, otherwise closes the long look if it is open, and otherwise
// simulates the home button.
void goBack();

}  // namespace runner
