// The status line above a banner's content: the clock and the "now" label. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// Returns the distance between the banner's top and the status line, in points.
NSInteger statusLineTop(const BrimContainerState& state);

// Creates both labels. They exist even if the setting statusbar is off, because the picture is placed relative to the
// clock.
void layOutStatusLine(BrimContainer* self, BrimContainerState& state);
