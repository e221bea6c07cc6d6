#include "simulator/springboard/notification_list_view.hpp"

#include "simulator/springboard/notification_list_cell.hpp"

namespace springboard {

namespace {

constexpr CGFloat sideMargin = 8;
constexpr CGFloat gap = 8;

void removeCells(const UIView* view) {
  const objc::Ref<NSArray> cells = view->subviews()->copied();
  for (NSUInteger index = 0; index < cells->count(); ++index)
    static_cast<UIView*>(cells->objectAtIndex(index))->removeFromSuperview();
}

}  // namespace

void showGroups(NCNotificationListView* view, const std::vector<NotificationGroup>& groups) {
  removeCells(view);
  const CGSize size = view->bounds().size;
  CGFloat top = 0;
  for (const NotificationGroup& group : groups) {
    if (top >= size.height) return;
    const auto cell = makeListCell(group, size.width - 2 * sideMargin);
    CGRect frame = cell->frame();
    frame.origin = {sideMargin, top};
    cell->setFrame(frame);
    view->addSubview(cell);
    top += frame.size.height + gap;
  }
}

void defineListView() { objc::defineClass<NCNotificationListView>({}); }

}  // namespace springboard
