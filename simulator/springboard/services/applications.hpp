// The installed applications, identified by their bundle identifiers, with names and icons. Main thread.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui_image.hpp"
#include "simulator/drawing/image.hpp"

namespace springboard {

// Installs the known applications whose icon, <bundle identifier>.png, is in the folder. Call it once, at start-up.
void registerApplications(const std::filesystem::path& folder);

// Bundle identifiers in the order of the home screen. The applications in the dock are last.
const std::vector<std::string>& installedApplications();

// The name that is shown below the icon. For an unknown application, the last component of its identifier.
std::string nameOf(std::string_view bundleIdentifier);

// The application's icon for the home screen, or a generic placeholder if the application has no icon. Autoreleased.
UIImage* iconOf(NSString* bundleIdentifier);
// Replaces the application's icon. Returns false if the file is not an image.
bool setIcon(const std::string& bundleIdentifier, const std::filesystem::path& file);

// The image <name>.png of the folder passed to registerApplications. Null if the file is missing.
std::shared_ptr<const drawing::Image> loadArtwork(const std::string& name);

}  // namespace springboard
