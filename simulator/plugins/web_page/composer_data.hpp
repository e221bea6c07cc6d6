// The data of the page's composer. Main thread.
#pragma once

#include <string>
#include <vector>

#include "simulator/plugins/phone_display/composer_commands.hpp"

namespace web_page {

// Returns the presets of the composer, in the order of their menu.
const std::vector<phone_display::Preset>& composerPresets();

// Returns a JSON object with two arrays. The objects in `applications` have the members `identifier` and `name`. The
// objects in `presets` have the member `name` and the contents of the fields.
std::string composerJson();

}  // namespace web_page
