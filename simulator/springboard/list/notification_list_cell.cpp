#include "simulator/springboard/list/notification_list_cell.hpp"

#include <algorithm>
#include <cmath>
#include <string>

#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/banner/banner_gestures.hpp"
#include "simulator/springboard/banner/notification_view.hpp"
#include "simulator/springboard/platter/platter_style.hpp"

namespace springboard {

namespace {

using Cell = NCNotificationListCell;

// The cards behind the front card: their maximum number, the visible height of each card, and its inset and decrease in
// opacity relative to the card in front of it.
constexpr std::size_t maxVisibleEdges = 2;
constexpr CGFloat edgeHeight = 8;
constexpr CGFloat edgeInset = 9;
constexpr CGFloat alphaStep = 0.25;

// Creates a card of which only the lower edge is visible. The rest is clipped, because it would show through the
// translucent front card.
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

void addEdges(Cell* cell, std::size_t count, CGSize front) {
  for (std::size_t depth = 1; depth <= count; ++depth) {
    const auto steps = static_cast<CGFloat>(depth);
    const CGFloat inset = steps * edgeInset;
    cell->addSubview(makeEdge({{inset, front.height + (steps - 1) * edgeHeight}, {front.width - 2 * inset, edgeHeight}},
                              1 - steps * alphaStep));
  }
}

NSString* footnoteFor(std::size_t others) {
  if (others == 0) return nullptr;
  return base::stringOf(std::to_string(others) + (others == 1 ? " more notification" : " more notifications"));
}

}  // namespace

objc::Ref<Cell> makeListCell(const NotificationGroup& group, CGFloat width) {
  auto cell = UIView::withFrame<Cell>({});
  const auto controller = makeShortLookController(group.front());
  objc::state(cell.get()) = {group, controller};
  UIView* view = controller->view();
  NCNotificationShortLookView* content = contentViewOf(view);
  const std::size_t others = group.size() - 1;
  setFootnote(content, footnoteFor(others));
  // The height is rounded up, because the next card must start at a whole point.
  const CGSize front = {width, std::ceil(heightOfShortLookView(content, width))};
  const std::size_t edges = std::min(others, maxVisibleEdges);
  addEdges(cell, edges, front);
  view->setFrame({{}, front});
  content->setFrame({{}, front});
  addTap(controller, view);
  cell->addSubview(view);
  cell->setFrame({{}, {width, front.height + static_cast<CGFloat>(edges) * edgeHeight}});
  return cell;
}

void refreshDate(const Cell* cell) {
  const auto& controller = objc::state(cell).controller;
  refreshDate(objc::state(contentViewOf(controller->view())).header, controller->notificationRequest());
}

void defineListCell() { objc::defineClassWithState<Cell>({}); }

}  // namespace springboard
