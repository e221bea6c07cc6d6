// The notification list as it is seen: one cell a group below the other, down to the lower edge of the screen.
#pragma once

#include <vector>

#include "platform/ui_view.hpp"
#include "simulator/springboard/services/notification_list.hpp"

class NCNotificationListView : public objc::Interface<"NCNotificationListView", UIView> {};

namespace springboard {

// The view's size is kept; groups without room have no cell.
void showGroups(NCNotificationListView* view, const std::vector<NotificationGroup>& groups);

void defineListView();

}  // namespace springboard
