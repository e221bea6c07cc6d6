// The pixels of the screen that a picture has to paint anew.
#pragma once

#include "simulator/uikit/rendering/screen_contents.hpp"

namespace uikit {

// Where one moment's screen differs from another's, and with it all that a backdrop there is made of.
drawing::RegionHandle differingPixels(const ScreenContents& before, const ScreenContents& after);

}  // namespace uikit
