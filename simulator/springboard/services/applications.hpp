// The installed applications with their names and icons. An application is identified by its bundle identifier. Main
// thread.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui_image.hpp"
#include "simulator/drawing/image.hpp"

namespace springboard {

// Installs the known applications whose icon, <bundle identifier>.png, is in the folder. Call this once, at start-up.
void registerApplications(const std::filesystem::path& folder);

// Returns the bundle identifiers in the order of the home screen. The applications in the dock are last.
const std::vector<std::string>& installedApplications();

// Returns the name that is shown below the icon. For an unknown application, returns the last component of its
// identifier.
std::string nameOf(std::string_view bundleIdentifier);

// Returns the application's icon for the home screen, or a generic placeholder if the application has no icon. The icon
// is autoreleased.
UIImage* iconOf(NSString* bundleIdentifier);
// Replaces the icon of the application. For applications that are not installed, only the 200 most recently set icons
// are retained. Returns false if the file is not an image.
bool setIcon(const std::string& bundleIdentifier, const std::filesystem::path& file);

// Loads the image <name>.png from the folder that was passed to registerApplications. Returns null if the file is
// missing or is not an image.
std::shared_ptr<const drawing::Image> loadArtwork(const std::string& name);

}  // namespace springboard
