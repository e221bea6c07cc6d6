// The long look: a notification's card with all it says and its actions, over a blurred screen.
#pragma once

#include "simulator/springboard/action_group_view.hpp"
#include "simulator/springboard/long_look_view.hpp"
#include "simulator/springboard/notification_view_controller.hpp"

struct LongLookControllerState {
  objc::Ref<UIView> backdrop;
  objc::Ref<NCNotificationLongLookView> card;
  objc::Ref<UIInterfaceActionGroupView> actions;
};

class NCNotificationLongLookViewController
    : public objc::Interface<"NCNotificationLongLookViewController", NCNotificationViewController> {};
template <>
struct objc::StateOf<NCNotificationLongLookViewController> {
  using Type = LongLookControllerState;
};

namespace springboard {

objc::Ref<NCNotificationLongLookViewController> makeLongLookController(NCNotificationRequest* request);

// How it looks where it comes from, a short look at this place of the screen, and where it goes.
void collapseLongLook(const NCNotificationLongLookViewController* controller, const CGRect& shortLook);
void expandLongLook(const NCNotificationLongLookViewController* controller, const CGRect& shortLook);

void defineLongLookController();

}  // namespace springboard
