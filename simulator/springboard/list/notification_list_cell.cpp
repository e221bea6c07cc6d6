#include "simulator/springboard/list/notification_list_cell.hpp"

#include <cmath>
#include <string>

#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/banner/banner_gestures.hpp"
#include "simulator/springboard/banner/notification_view.hpp"
#include "simulator/springboard/list/pile_edges.hpp"
#include "simulator/uikit/accessibility/accessibility.hpp"

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
  objc::state(cell.get()) = {group, controller};
  UIView* view = controller->view();
  NCNotificationShortLookView* content = contentViewOf(view);
  const std::size_t others = group.size() - 1;
  setFootnote(content, footnoteFor(others));
  // The height is rounded up, because the next card must start at a whole point.
  const CGSize front = {width, std::ceil(heightOfShortLookView(content, width))};
  const CGFloat edgesHeight = addPileEdges(cell, others, front);
  view->setFrame({{}, front});
  content->setFrame({{}, front});
  addTap(controller, view);
  cell->addSubview(view);
  cell->setFrame({{}, {width, front.height + edgesHeight}});
  return cell;
}

void refreshDate(const Cell* cell) {
  const auto& controller = objc::state(cell).controller;
  refreshDate(objc::state(contentViewOf(controller->view())).header, controller->notificationRequest());
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
