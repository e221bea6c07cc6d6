// The two blurs of a banner. The background blur is behind the banner's content. The keyboard backdrop blurs the rest
// of the screen while the user types a reply. If the setting backgroundBlur is off, neither of them is shown. Main
// thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// Adds the hidden keyboard backdrop to the banner's superview, behind the banner. A tap on the backdrop discards the
// typed reply and dismisses the banner.
void addKeyboardBackdrop(BrimContainer* self, BrimContainerState& state);

// Adds the background blur. Does nothing in black mode, because the banner is then opaque.
void addBackgroundBlur(BrimContainer* self, const BrimContainerState& state);

// Fades the keyboard backdrop to the alpha. If the alpha is 0, the backdrop is hidden after the animation.
void setOverlay(BrimContainer* self, CGFloat alpha);
