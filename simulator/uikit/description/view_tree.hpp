// The view tree as JSON. Each class adds its fields in -_describe:, after sending it to super.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "platform/ui_view.hpp"
#include "simulator/drawing/geometry.hpp"

namespace uikit {

// The view and, in "children", its subviews back to front. Lays out first.
nlohmann::ordered_json describeTree(UIView* root);

// The argument of -_describe:.
inline nlohmann::ordered_json& descriptionAt(void* pointer) { return *static_cast<nlohmann::ordered_json*>(pointer); }

// [red, green, blue, alpha]
nlohmann::ordered_json describeColor(const drawing::Color& color);

}  // namespace uikit
