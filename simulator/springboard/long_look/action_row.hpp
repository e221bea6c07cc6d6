// A row of a long look that stands for one of the notification's actions.
#pragma once

#include "platform/ui_control.hpp"
#include "platform/ui_label.hpp"
#include "simulator/springboard/services/notification_request.hpp"

struct ActionRowState {
  objc::Ref<NCNotificationAction> action;
  objc::Ref<UILabel> title;
  objc::Ref<UIView> separator;
};

class UIInterfaceActionRow : public objc::Interface<"UIInterfaceActionRow", UIControl> {};
template <>
struct objc::StateOf<UIInterfaceActionRow> {
  using Type = ActionRowState;
};

namespace springboard {

inline constexpr CGFloat actionRowHeight = 54;

enum class RowPlace { First, Further };

// The row is the caller's to listen to.
objc::Ref<UIInterfaceActionRow> makeActionRow(NCNotificationAction* action, RowPlace place);

void defineActionRow();

}  // namespace springboard
