// Computes the damage: the pixels of the screen that have to be repainted.
#pragma once

#include "simulator/uikit/rendering/screen_contents.hpp"

namespace uikit {

// The pixels in which two states of the screen differ, together with all pixels that backdrops in this region depend
// on.
drawing::RegionHandle differingPixels(const ScreenContents& before, const ScreenContents& after);

}  // namespace uikit
