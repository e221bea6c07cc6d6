// Starts the home screen. Main thread.
#pragma once

#include <filesystem>

namespace springboard {

// Registers the classes of the home screen. Call this once, after uikit::registerClasses and after the environment has
// been set, because the class of the notification view depends on the system version.
void registerClasses();

// Creates the application object, the windows, the home screen and the bulletin server. Reads application icons and
// wallpapers from the folder. Call this once, after libraries have been loaded, because the phone also loads them
// before the application starts.
void start(const std::filesystem::path& applicationArtwork);

}  // namespace springboard
