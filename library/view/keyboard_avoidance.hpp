// Keeps a banner with an open reply field above the on-screen keyboard. If the banner's text is too long for the space
// above the keyboard, the text is truncated. The maximum number of lines does not change. Main thread.
#pragma once

#include <span>

#include "library/view/brim_container_state.hpp"

// The methods of BrimTextField.
std::span<const objc::MethodEntry> replyFieldMethods();

// Call this function after the field has been added to the banner. Until the field is deallocated, the maximum height
// of the banner is then updated whenever the keyboard's frame changes.
void observeKeyboard(const BrimContainerState& state);
