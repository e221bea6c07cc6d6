// The rows beneath a long look's card, one for each of the sender's actions.
#pragma once

#include "platform/ui_view.hpp"
#include "simulator/springboard/services/notification_request.hpp"

class UIInterfaceActionGroupView : public objc::Interface<"UIInterfaceActionGroupView", UIView> {};

namespace springboard {

// Sends _actionRowTapped: with the row to the target, which is not kept.
objc::Ref<UIInterfaceActionGroupView> makeActionGroup(const NCNotificationRequest* request, NSObject* target);

// Leaves the first rows, as many as stand whole in this height.
void removeRowsBeyond(const UIInterfaceActionGroupView* view, CGFloat height);
CGFloat heightOfActionGroup(const UIInterfaceActionGroupView* view);

void defineActionGroupView();

}  // namespace springboard
