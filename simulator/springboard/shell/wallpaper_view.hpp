// The picture behind everything, which follows the appearance.
#pragma once

#include "platform/ui_image_view.hpp"

class SBFStaticWallpaperView : public objc::Interface<"SBFStaticWallpaperView", UIImageView> {};

namespace springboard {

// The wallpaper that goes with the appearance; nil without artwork.
UIImage* wallpaper();

// As large as the screen.
objc::Ref<SBFStaticWallpaperView> makeWallpaperView();

void defineWallpaperView();

}  // namespace springboard
