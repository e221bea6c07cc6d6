// The layout of a banner: creates its subviews and their constraints. Main thread.
#pragma once

#include "library/view/brim_container.hpp"

// Call when the banner has a superview. Every call creates all subviews again.
void layOut(BrimContainer* self);
