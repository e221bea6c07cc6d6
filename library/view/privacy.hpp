// Hides a banner's texts until the banner is expanded, if the setting hide_unless_expanded is on. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// Replaces the header with "Content hidden" in the user's language, and removes the other texts. Call this function
// before the layout.
void replaceTextsWithPlaceholder(BrimContainerState& state);

// Shows the original header and body again; the sub-header stays hidden. A tiny banner shows the original header twice,
// because the header is also appended to the hidden body. Call this function after the layout.
void showContent(BrimContainer* self);
