// The wallpaper of the home screen and the lock screen. It follows the light or dark appearance. Main thread.
#pragma once

#include "platform/ui_image_view.hpp"

class SBFStaticWallpaperView : public objc::Interface<"SBFStaticWallpaperView", UIImageView> {};

namespace springboard {

// Returns the wallpaper for the current appearance, or nil if the artwork is missing. The image belongs to a cache;
// retain it to keep it.
UIImage* wallpaper();

// Creates a view that shows the wallpaper and covers the screen.
objc::Ref<SBFStaticWallpaperView> makeWallpaperView();

void defineWallpaperView();

}  // namespace springboard
