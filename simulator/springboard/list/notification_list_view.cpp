#include "simulator/springboard/list/notification_list_view.hpp"

#include <algorithm>

#include "objc/class_definition.hpp"
#include "simulator/springboard/list/notification_list_cell.hpp"
#include "simulator/uikit/accessibility/accessible_element.hpp"

namespace springboard {

namespace {

constexpr CGFloat sideMargin = 8;
constexpr CGFloat cellGap = 8;

using Cell = NCNotificationListCell;
using Cells = std::vector<objc::Ref<Cell>>;

Cells cellsOf(const UIView* view) {
  Cells cells;
  const NSArray* subviews = view->subviews();
  for (NSUInteger index = 0; index < subviews->count(); ++index)
    cells.push_back(objc::retain(static_cast<Cell*>(subviews->objectAtIndex(index))));
  return cells;
}

// Returns the cell of the group. Reuses the existing cell if there is one, because a touch or an open long look can
// refer to it.
objc::Ref<Cell> cellFor(const NotificationGroup& group, const Cells& shown, CGFloat width) {
  for (const objc::Ref<Cell>& cell : shown) {
    if (objc::state(cell.get()).group != group) continue;
    refreshDate(cell);
    return cell;
  }
  return makeListCell(group, width);
}

NSString* accessibilityLabel(NCNotificationListView*) { return "Notifications"_ns; }
uikit::AccessibleRole accessibleRole(NCNotificationListView*) { return uikit::AccessibleRole::List; }

}  // namespace

void showGroups(NCNotificationListView* view, const std::vector<NotificationGroup>& groups) {
  const Cells shown = cellsOf(view);
  const CGSize size = view->bounds().size;
  Cells cells;
  CGFloat top = 0;
  for (const NotificationGroup& group : groups) {
    if (top >= size.height) break;
    cells.push_back(cellFor(group, shown, size.width - 2 * sideMargin));
    CGRect frame = cells.back()->frame();
    frame.origin = {sideMargin, top};
    cells.back()->setFrame(frame);
    top += frame.size.height + cellGap;
  }
  for (const objc::Ref<Cell>& cell : shown)
    if (std::ranges::find(cells, cell) == cells.end()) cell->removeFromSuperview();
  for (const objc::Ref<Cell>& cell : cells) view->addSubview(cell);
}

void defineListView() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"accessibilityLabel", &accessibilityLabel>(),
      objc::method<"_accessibleRole", &accessibleRole>(),
  };
  objc::defineClass<NCNotificationListView>(methods);
}

}  // namespace springboard
