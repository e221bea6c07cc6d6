// The two blurs of a banner. The background blur is behind the banner's content. The keyboard backdrop blurs the rest
// of the screen while the user writes a reply. Both follow the setting backgroundBlur. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// Adds the backdrop, hidden, behind the banner in its superview. A tap on it dismisses the banner.
void addKeyboardBackdrop(BrimContainer* self, BrimContainerState& state);

// Adds nothing in the black mode, which is opaque.
void addBackgroundBlur(BrimContainer* self, const BrimContainerState& state);

// Fades the keyboard backdrop to the alpha; at 0 it is hidden afterwards.
void setOverlay(BrimContainer* self, CGFloat alpha);
