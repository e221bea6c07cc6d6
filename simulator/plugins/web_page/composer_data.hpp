// The data of the page's composer. Main thread.
#pragma once

#include <string>
#include <vector>

#include "simulator/plugins/phone_display/composer_commands.hpp"

namespace web_page {

// Returns the presets of the composer, in the order of their menu.
const std::vector<phone_display::Preset>& composerPresets();

// Returns a JSON object with `applications`, an array of objects with `identifier` and `name`, and `presets`, an array
// of objects with `name` and the contents of the fields.
std::string composerJson();

}  // namespace web_page
