// A row of a long look. It executes one of the notification's actions. Main thread.
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

inline constexpr CGFloat actionRowHeight = 54;  // in points

// The position of a row in its group. A row that follows another row begins with a separator.
enum class RowPosition { First, Following };

// Creates a row. The caller adds a target for UIControlEvents::TouchUpInside.
objc::Ref<UIInterfaceActionRow> makeActionRow(NCNotificationAction* action, RowPosition position);

void defineActionRow();

}  // namespace springboard
