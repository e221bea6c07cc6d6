// Builds everything a banner shows, once it is in a superview. All placement is by anchors.
#pragma once

#include "library/view/brim_container.hpp"

// Every call builds all of it anew.
void layOut(BrimContainer* self);
