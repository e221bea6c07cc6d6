// The home screen's classes, and the home screen itself.
#pragma once

#include <filesystem>

namespace springboard {

// Defines them all, once, after the view toolkit's and with its environment set: the notification view's class depends
// on the system version.
void registerClasses();

// The application object, its windows, the home screen and the bulletin server. Once, after libraries have been mapped
// in, as the phone's process does. Applications' icons and wallpapers are read from the folder.
void start(const std::filesystem::path& applicationArtwork);

}  // namespace springboard
