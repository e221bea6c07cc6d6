// Computes the damage region: the pixels of the screen that must be repainted.
#pragma once

#include "simulator/uikit/rendering/screen_contents.hpp"

namespace uikit {

// Returns the pixels in which two states of the screen differ. Also includes all pixels that backdrops in this region
// read, and the whole of each rounded clip corner that the region intersects.
drawing::RegionHandle differingPixels(const ScreenContents& before, const ScreenContents& after);

}  // namespace uikit
