// Hides a banner's texts until it is expanded; see the setting hide_unless_expanded. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// Call before the layout. The header becomes "Content hidden", in the user's language; the other texts are removed.
void replaceTextsWithPlaceholder(BrimContainerState& state);

// Shows the original texts. Call after the layout.
void showContent(BrimContainer* self);
