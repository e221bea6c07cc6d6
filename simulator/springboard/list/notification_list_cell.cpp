#include "simulator/springboard/list/notification_list_cell.hpp"

#include <cmath>
#include <string>

#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/banner/banner_gestures.hpp"
#include "simulator/springboard/banner/notification_view.hpp"
#include "simulator/springboard/list/pile_edges.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"
#include "simulator/uikit/accessibility/accessible_properties.hpp"
#include "simulator/uikit/views/view.hpp"

namespace springboard {

namespace {

using Cell = NCNotificationListCell;

NSString* footnoteFor(std::size_t others) {
  if (others == 0) return nullptr;
  return base::stringOf(std::to_string(others) + (others == 1 ? " more notification" : " more notifications"));
}

bool isAccessibilityElement(Cell*) { return true; }
NSString* accessibilityLabel(Cell* self) {
  const NotificationGroup& group = objc::state(self).group;
  return base::stringOf(
      uikit::joined({accessibleNameOf(group.front(), self), base::textOf(footnoteFor(group.size() - 1))}));
}
uikit::AccessibleRole accessibleRole(Cell*) { return uikit::AccessibleRole::ListItem; }

}  // namespace

objc::Ref<Cell> makeListCell(const NotificationGroup& group, CGFloat width) {
  auto cell = UIView::withFrame<Cell>({});
  const auto controller = makeShortLookController(group.front());
  NotificationListCellState& state = objc::state(cell.get());
  state.group = group;
  state.controller = controller;
  UIView* view = controller->view();
  NCNotificationShortLookView* content = contentViewOf(view);
  const std::size_t others = group.size() - 1;
  setFootnote(content, footnoteFor(others));
  // Rounds the height up, because the next card must begin at a whole point.
  const CGSize front = {width, std::ceil(heightOfShortLookView(content, width))};
  const CGFloat edgesHeight = addPileEdges(cell, others, front);
  view->setFrame({{}, front});
  content->setFrame({{}, front});
  if (others == 0) addTap(controller, view);
  cell->addSubview(view);
  cell->setFrame({{}, {width, front.height + edgesHeight}});
  return cell;
}

void refreshDate(const Cell* cell) {
  const auto& controller = objc::state(cell).controller;
  refreshDate(objc::state(contentViewOf(controller->view())).header, controller->notificationRequest());
}

void revealButtons(Cell* cell, CGFloat distance) {
  NotificationListCellState& state = objc::state(cell);
  if (state.buttons == nullptr) {
    if (distance == 0) return;
    state.buttons = makeCellButtons(state.group.size());
    cell->addSubview(state.buttons);
    placeCellButtons(state.buttons, cell->bounds().size, 0);
  }
  const bool mirrored = uikit::effectiveDirection(cell) == uikit::LayoutDirection::RightToLeft;
  const CGFloat movement = (state.revealed - distance) * (mirrored ? -1 : 1);
  state.revealed = distance;
  for (NSUInteger index = 0; index < cell->subviews()->count(); ++index) {
    auto* card = static_cast<UIView*>(cell->subviews()->objectAtIndex(index));
    if (card == state.buttons) continue;
    CGRect frame = card->frame();
    frame.origin.x += movement;
    card->setFrame(frame);
  }
  placeCellButtons(state.buttons, cell->bounds().size, distance);
}

void openLongLook(const Cell* cell) {
  objc::send<void, "presentLongLookAnimated:trigger:completion:">(
      objc::state(cell).controller.get(), true, NSInteger{0}, static_cast<objc::Block<void(bool)>*>(nullptr));
}

void clearNotifications(const Cell* cell) {
  // A copy, because the list can remove the cell.
  const NotificationGroup group = objc::state(cell).group;
  for (const auto& request : group) {
    if (NCNotificationAction* clear = request->clearAction())
      makeShortLookController(request)->askDelegateToExecuteAction(clear, NSDictionary::dictionary(), true);
    else
      NCNotificationDispatcher::shared()->withdraw(request);
  }
}

void defineListCell() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"isAccessibilityElement", &isAccessibilityElement>(),
      objc::method<"accessibilityLabel", &accessibilityLabel>(),
      objc::method<"_accessibleRole", &accessibleRole>(),
  };
  objc::defineClassWithState<Cell>(methods);
}

}  // namespace springboard
