// The grabber: the small bar at a banner's bottom edge. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

void layOutGrabber(BrimContainer* self, BrimContainerState& state);
