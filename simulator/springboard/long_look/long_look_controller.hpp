// The long look: a notification's card with all it says and its actions, over a blurred screen.
#pragma once

#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "simulator/springboard/long_look/action_group_view.hpp"
#include "simulator/springboard/long_look/long_look_view.hpp"
#include "simulator/springboard/long_look/reply_bar.hpp"

struct LongLookControllerState {
  objc::Ref<UIView> backdrop;
  objc::Ref<NCNotificationLongLookView> card;
  objc::Ref<UIInterfaceActionGroupView> actions;
  objc::Ref<NCNotificationReplyBar> replyBar;  // in place of the actions, while a text is typed
  CGRect shortLook;                            // where it comes from
};

class NCNotificationLongLookViewController
    : public objc::Interface<"NCNotificationLongLookViewController", NCNotificationViewController> {};
template <>
struct objc::StateOf<NCNotificationLongLookViewController> {
  using Type = LongLookControllerState;
};

namespace springboard {

objc::Ref<NCNotificationLongLookViewController> makeLongLookController(NCNotificationRequest* request);

// How it looks where it comes from, a short look at this place of the screen, and when it is open.
void collapseLongLook(const NCNotificationLongLookViewController* controller, const CGRect& shortLook);
void expandLongLook(const NCNotificationLongLookViewController* controller);
// Takes the keyboard away.
void endTyping(const NCNotificationLongLookViewController* controller);

void defineLongLookController();

}  // namespace springboard
