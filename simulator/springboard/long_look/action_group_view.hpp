// The rows below the card of a long look, one for each custom action of the application. Main thread.
#pragma once

#include "platform/ui_view.hpp"
#include "simulator/springboard/services/notification_request.hpp"

class UIInterfaceActionGroupView : public objc::Interface<"UIInterfaceActionGroupView", UIView> {};

namespace springboard {

// A tapped row sends _actionRowTapped: with itself to the target, which is not retained.
objc::Ref<UIInterfaceActionGroupView> makeActionGroup(const NCNotificationRequest* request, NSObject* target);

// Removes the last rows that do not fit completely into this height in points.
void removeRowsBeyond(const UIInterfaceActionGroupView* view, CGFloat height);
CGFloat heightOfActionGroup(const UIInterfaceActionGroupView* view);

void defineActionGroupView();

}  // namespace springboard
