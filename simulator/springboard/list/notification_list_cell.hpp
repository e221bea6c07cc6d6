// A cell of the notification list. It shows the latest notification of a group as a card and, below it, the edges of
// the cards behind that card. Main thread.
#pragma once

#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "simulator/springboard/services/notification_list.hpp"

struct NotificationListCellState {
  springboard::NotificationGroup group;
  objc::Ref<NCNotificationShortLookViewController> controller;
};

class NCNotificationListCell : public objc::Interface<"NCNotificationListCell", UIView> {};
template <>
struct objc::StateOf<NCNotificationListCell> {
  using Type = NotificationListCellState;
};

namespace springboard {

// Creates a cell of this width, which is in points. The height of the cell fits the group. The group must not be empty.
objc::Ref<NCNotificationListCell> makeListCell(const NotificationGroup& group, CGFloat width);

// Updates the displayed age of the notification to the current time.
void refreshDate(const NCNotificationListCell* cell);

void defineListCell();

}  // namespace springboard
