#include "simulator/springboard/platter/label_stack.hpp"

namespace springboard {

namespace {

constexpr CGFloat unlimitedHeight = 10000;

}  // namespace

bool hasNoText(const UILabel* label) { return label->text()->length() == 0; }

std::vector<CGRect> stackedFrames(std::span<UILabel* const> labels, CGPoint top, CGFloat width) {
  std::vector<CGRect> frames;
  for (const UILabel* label : labels) {
    const CGSize size = objc::send<CGSize, "sizeThatFits:">(label, CGSize{width, unlimitedHeight});
    frames.push_back({top, {width, hasNoText(label) ? 0 : size.height}});
    top.y += frames.back().size.height;
  }
  return frames;
}

}  // namespace springboard
