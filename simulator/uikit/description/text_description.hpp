// The JSON values that describe text in the view tree. Main thread only.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <vector>

#include "platform/ui_label.hpp"
#include "simulator/drawing/text_layout.hpp"

namespace uikit {

nlohmann::ordered_json describeFont(const drawing::Font& font);
nlohmann::ordered_json describeRuns(const std::vector<drawing::Run>& runs);
const char* nameOf(NSTextAlignment alignment);

}  // namespace uikit
