// Starts the home screen. Main thread.
#pragma once

#include <filesystem>

namespace springboard {

// Registers the classes of the home screen. Call this once, after uikit::registerClasses and after the environment has
// been set, because the class of the notification view depends on the system version.
void registerClasses();

// Starts the services: the application object, the dispatcher of notifications, the bulletin server and the banner
// presenter with its window, which is hidden while there is no banner. Reads application icons and wallpapers from the
// folder. The services do not need the shell. Call this once, after libraries have been loaded, because the phone also
// loads them before the application starts.
void startServices(const std::filesystem::path& applicationArtwork);
// Starts the shell: the window of the home screen and the status bar. The lock screen creates its window when it
// appears. Call this at most once, after startServices.
void startShell();

}  // namespace springboard
