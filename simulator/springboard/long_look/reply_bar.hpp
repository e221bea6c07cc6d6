// The text field that a long look shows for an action that accepts text. Main thread.
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

inline constexpr CGFloat replyBarHeight = 54;  // in points

// Creates the bar. When the user presses the return key, the bar sends _replyFieldReturned: to the target, with the
// text field as the argument. The target is not retained. The return key is disabled while the field is empty.
objc::Ref<NCNotificationReplyBar> makeReplyBar(NCNotificationAction* action, NSObject* target);

void defineReplyBar();

}  // namespace springboard
