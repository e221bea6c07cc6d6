// The view of the notification list. It shows one cell for each group, from top to bottom. Main thread.
#pragma once

#include <vector>

#include "platform/ui_view.hpp"
#include "simulator/springboard/services/notification_list.hpp"

class NCNotificationListView : public objc::Interface<"NCNotificationListView", UIView> {};

namespace springboard {

// Shows the groups. A group that does not fit into the view has no cell. The size of the view does not change.
void showGroups(NCNotificationListView* view, const std::vector<NotificationGroup>& groups);

void defineListView();

}  // namespace springboard
