// Labels that stand below one another.
#pragma once

#include <span>
#include <vector>

#include "platform/ui_label.hpp"

namespace springboard {

bool saysNothing(const UILabel* label);

// Where each goes from this place down, as high as its text needs at this width; one that says nothing takes no room.
std::vector<CGRect> stackedFrames(std::span<UILabel* const> labels, CGPoint top, CGFloat width);

}  // namespace springboard
