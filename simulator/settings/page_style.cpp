#include "simulator/settings/page_style.hpp"

#include <cmath>
#include <limits>

namespace settings_application {

namespace {

struct PairOfColors {
  drawing::Color light;
  drawing::Color dark;
};

// The order of the rows is that of PageColor.
constexpr PairOfColors colors[] = {
    {{0.949, 0.949, 0.969, 1}, {0, 0, 0, 1}},
    {{1, 1, 1, 1}, {0.11, 0.11, 0.118, 1}},
    {{0.82, 0.82, 0.84, 1}, {0.227, 0.227, 0.235, 1}},
    {{0.235, 0.235, 0.263, 0.22}, {0.33, 0.33, 0.345, 0.6}},
    {{0.235, 0.235, 0.263, 0.6}, {0.922, 0.922, 0.961, 0.6}},
    {{0.235, 0.235, 0.263, 0.3}, {0.922, 0.922, 0.961, 0.3}},
};

CGSize sizeOf(const UILabel* label, CGFloat width) {
  return objc::send<CGSize, "sizeThatFits:">(label, CGSize{width, std::numeric_limits<CGFloat>::max()});
}

}  // namespace

drawing::Color pageColor(PageColor color, const UIView* view) {
  const PairOfColors& pair = colors[static_cast<std::size_t>(color)];
  return uikit::styleOf(view) == UIUserInterfaceStyle::Dark ? pair.dark : pair.light;
}

objc::Ref<UILabel> makeLabel(CGFloat fontSize) {
  auto label = UIView::withFrame<UILabel>({});
  label->setFont(UIFont::systemFontOfSize(fontSize));
  label->setNumberOfLines(0);
  label->setUserInteractionEnabled(false);
  return label;
}

CGFloat heightOfLabel(const UILabel* label, CGFloat width) {
  return label->text()->length() == 0 ? 0 : std::ceil(sizeOf(label, width).height);
}

CGFloat widthOfLabel(const UILabel* label) { return sizeOf(label, 0).width; }

}  // namespace settings_application
