// Computes a vertical layout of labels. Main thread.
#pragma once

#include <span>
#include <vector>

#include "platform/ui_label.hpp"

namespace springboard {

bool hasNoText(const UILabel* label);

// Returns the frame of each label, from `top` downward. The height of a label is the height of its text at this width.
// A label without text has the height 0. All lengths are in points.
std::vector<CGRect> stackedFrames(std::span<UILabel* const> labels, CGPoint top, CGFloat width);

}  // namespace springboard
