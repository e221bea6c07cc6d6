// The texts of a banner, beside the picture: header, sub-header and body. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// A tiny banner has no sub-header, and its header label shows the tiny line.
void layOutTexts(BrimContainer* self, BrimContainerState& state);

// Changes the number of lines of the body, or of a tiny banner's line. 0 means no limit. Animated.
void setMaxLineCount(BrimContainer* self, NSInteger lines);
