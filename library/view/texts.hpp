// The texts of a banner, beside the picture: header, sub-header and body. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// Creates the labels. A tiny banner has no sub-header, and its header label shows the tiny line.
void layOutTexts(BrimContainer* self, BrimContainerState& state);

// Changes the maximum number of lines of the body, or of the header label in a tiny banner, with an animation. 0 means
// no limit.
void setMaxLineCount(BrimContainer* self, NSInteger lines);
