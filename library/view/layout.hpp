// The layout of a banner: creates its subviews and their constraints. Main thread.
#pragma once

#include "library/view/brim_container.hpp"

// The banner must have a superview. Every call creates all subviews again.
void layOut(BrimContainer* self);
