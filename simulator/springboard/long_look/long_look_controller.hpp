// The controller of the long look. It shows the complete notification with its actions over a blurred screen. Main
// thread.
#pragma once

#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "simulator/springboard/long_look/action_group_view.hpp"
#include "simulator/springboard/long_look/long_look_view.hpp"
#include "simulator/springboard/long_look/reply_bar.hpp"

struct LongLookControllerState {
  objc::Ref<UIView> backdrop;
  objc::Ref<NCNotificationLongLookView> card;
  objc::Ref<UIInterfaceActionGroupView> actions;
  objc::Ref<NCNotificationReplyBar> replyBar;  // replaces the actions while the user types text
  CGRect shortLook;                            // the frame of the short look on the screen
};

class NCNotificationLongLookViewController
    : public objc::Interface<"NCNotificationLongLookViewController", NCNotificationViewController> {};
template <>
struct objc::StateOf<NCNotificationLongLookViewController> {
  using Type = LongLookControllerState;
};

namespace springboard {

objc::Ref<NCNotificationLongLookViewController> makeLongLookController(NCNotificationRequest* request);

// Arrange the views. collapseLongLook arranges them for the start of the opening animation: the card has the short
// look's frame on the screen. expandLongLook arranges them for the open long look.
void collapseLongLook(const NCNotificationLongLookViewController* controller, const CGRect& shortLook);
void expandLongLook(const NCNotificationLongLookViewController* controller);
// Hides the keyboard if the user is typing text.
void endTyping(const NCNotificationLongLookViewController* controller);

void defineLongLookController();

}  // namespace springboard
