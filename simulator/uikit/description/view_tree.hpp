// Describes the view tree as JSON. A class overrides -_describe: to add its fields, and calls super first. Main thread
// only.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "platform/ui_view.hpp"
#include "simulator/drawing/geometry.hpp"

namespace uikit {

// Describes the view and, in the field "children", its subviews from back to front. Lays out the view first. The view
// must not be nil.
nlohmann::ordered_json describeTree(UIView* root);

// Returns the JSON object that -_describe: receives as its argument.
inline nlohmann::ordered_json& descriptionAt(void* pointer) { return *static_cast<nlohmann::ordered_json*>(pointer); }

// Describes a color as an array [red, green, blue, alpha].
nlohmann::ordered_json describeColor(const drawing::Color& color);

}  // namespace uikit
