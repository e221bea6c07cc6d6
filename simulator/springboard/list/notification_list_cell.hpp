// One place in the notification list: the latest notification of a group, and the edges of those beneath it.
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

// As high as the group needs at this width.
objc::Ref<NCNotificationListCell> makeListCell(const NotificationGroup& group, CGFloat width);

// Time has passed since it was made.
void renewDate(const NCNotificationListCell* cell);

void defineListCell();

}  // namespace springboard
