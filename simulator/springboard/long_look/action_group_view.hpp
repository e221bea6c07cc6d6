// The rows below the card of a long look. Each row represents one custom action of the application. Main thread.
#pragma once

#include "platform/ui_view.hpp"
#include "simulator/springboard/services/notification_request.hpp"

class UIInterfaceActionGroupView : public objc::Interface<"UIInterfaceActionGroupView", UIView> {};

namespace springboard {

// Creates the rows. A tapped row sends _actionRowTapped: to the target, with the row as the argument. The target is not
// retained.
objc::Ref<UIInterfaceActionGroupView> makeActionGroup(const NCNotificationRequest* request, NSObject* target);

// Removes the rows that do not fit completely into this height, which is in points.
void removeRowsBeyond(const UIInterfaceActionGroupView* view, CGFloat height);
CGFloat heightOfActionGroup(const UIInterfaceActionGroupView* view);

void defineActionGroupView();

}  // namespace springboard
