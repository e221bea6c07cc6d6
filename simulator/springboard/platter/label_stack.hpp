// Vertical layout of labels. Main thread.
#pragma once

#include <span>
#include <vector>

#include "platform/ui_label.hpp"

namespace springboard {

bool hasNoText(const UILabel* label);

// Returns the frame of each label, from `top` downward. The height of a label is what its text needs at this width; a
// label without text has the height 0. Points.
std::vector<CGRect> stackedFrames(std::span<UILabel* const> labels, CGPoint top, CGFloat width);

}  // namespace springboard
