// The field of a long look in which an action's text is typed.
#pragma once

#include "platform/ui_text_field.hpp"
#include "simulator/springboard/services/notification_request.hpp"

struct ReplyBarState {
  objc::Ref<NCNotificationAction> action;
  objc::Ref<UITextField> field;
};

class NCNotificationReplyBar : public objc::Interface<"NCNotificationReplyBar", UIView> {};
template <>
struct objc::StateOf<NCNotificationReplyBar> {
  using Type = ReplyBarState;
};

namespace springboard {

inline constexpr CGFloat replyBarHeight = 54;

// Sends _replyFieldReturned: with the field to the target, which is not kept, when its text is to be sent;
// no text is not.
objc::Ref<NCNotificationReplyBar> makeReplyBar(NCNotificationAction* action, NSObject* target);

void defineReplyBar();

}  // namespace springboard
