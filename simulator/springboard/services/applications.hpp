// The applications of the phone: their names and icons by bundle identifier.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui_image.hpp"
#include "simulator/drawing/image.hpp"

namespace springboard {

// Reads the folder's icons, <bundle identifier>.png, and gives them to the view toolkit. Once, at start.
void registerApplications(const std::filesystem::path& folder);

// In the order of the home screen; those of the dock last.
const std::vector<std::string>& installedApplications();

// What stands below its icon. An application nobody knows is named by its identifier's last component.
std::string nameOf(std::string_view bundleIdentifier);

// The application's icon, the platform's generic placeholder for one without.
UIImage* iconOf(NSString* bundleIdentifier);
// From now on this is the application's icon. False when the file is no picture.
bool setIcon(const std::string& bundleIdentifier, const std::filesystem::path& file);

// The picture <name>.png of the artwork folder. Null if it is missing.
std::shared_ptr<const drawing::Image> loadArtwork(const std::string& name);

}  // namespace springboard
