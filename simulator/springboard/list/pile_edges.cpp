#include "simulator/springboard/list/pile_edges.hpp"

#include <algorithm>

#include "platform/ui_visual_effect_view.hpp"
#include "simulator/springboard/platter/platter_style.hpp"

namespace springboard {

namespace {

// The cards behind the front card: their maximum number, the visible height of each card, and its inset and decrease in
// opacity relative to the card in front of it.
constexpr std::size_t maxVisibleEdges = 2;
constexpr CGFloat edgeHeight = 8;
constexpr CGFloat edgeInset = 9;
constexpr CGFloat alphaStep = 0.25;

// Creates a card whose lower edge alone is visible. The rest is clipped, because it would show through the translucent
// front card.
objc::Ref<UIView> makeEdge(CGRect frame, CGFloat alpha) {
  auto strip = UIView::withFrame<UIView>(frame);
  strip->setClipsToBounds(true);
  strip->setAlpha(alpha);
  auto card = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(UIBlurEffectStyle::Regular));
  card->setFrame({{0, frame.size.height - 3 * cardCornerRadius}, {frame.size.width, 3 * cardCornerRadius}});
  applyCardShape(card);
  strip->addSubview(card);
  return strip;
}

}  // namespace

CGFloat addPileEdges(UIView* cell, std::size_t hiddenCards, CGSize front) {
  const std::size_t count = std::min(hiddenCards, maxVisibleEdges);
  for (std::size_t depth = 1; depth <= count; ++depth) {
    const auto steps = static_cast<CGFloat>(depth);
    const CGFloat inset = steps * edgeInset;
    cell->addSubview(makeEdge({{inset, front.height + (steps - 1) * edgeHeight}, {front.width - 2 * inset, edgeHeight}},
                              1 - steps * alphaStep));
  }
  return static_cast<CGFloat>(count) * edgeHeight;
}

}  // namespace springboard
