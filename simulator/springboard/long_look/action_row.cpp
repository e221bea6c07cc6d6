#include "simulator/springboard/long_look/action_row.hpp"

#include "simulator/springboard/platter/platter_style.hpp"
#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace springboard {

namespace {

using Row = UIInterfaceActionRow;

constexpr CGFloat fontSize = 17;
constexpr CGFloat padding = 16;

void recolor(Row* self) {
  const ActionRowState& parts = objc::state(self);
  const bool isPressed = objc::state<UIControl>(self).highlighted;
  self->setBackgroundColor(isPressed ? pressedRowColor(self) : cardColor(self));
  parts.title->setTextColor(textColor(self));
  parts.separator->setBackgroundColor(separatorColor(self));
}

void controlStateChanged(Row* self) {
  objc::sendSuper<"UIInterfaceActionRow", void, "_controlStateChanged">(self);
  recolor(self);
}

void traitCollectionDidChange(Row* self, UITraitCollection* previous) {
  objc::sendSuper<"UIInterfaceActionRow", void, "traitCollectionDidChange:">(self, previous);
  recolor(self);
}

void layoutSubviews(Row* self) {
  objc::sendSuper<"UIInterfaceActionRow", void, "layoutSubviews">(self);
  const ActionRowState& parts = objc::state(self);
  if (parts.title == nullptr) return;
  const CGSize size = self->bounds().size;
  parts.title->setFrame({{padding, 0}, {size.width - 2 * padding, size.height}});
  parts.separator->setFrame({{}, {size.width, 1 / uikit::environment().device.scale}});
}

// Returns the title of the action, or its identifier if it has no title.
NSString* titleOf(const NCNotificationAction* action) {
  const NotificationActionState& state = objc::state(action);
  return state.title->length() != 0 ? state.title : state.identifier;
}

}  // namespace

objc::Ref<Row> makeActionRow(NCNotificationAction* action, RowPosition position) {
  auto row = UIView::withFrame<Row>({});
  ActionRowState& parts = objc::state(row.get());
  parts.action = objc::retain(action);
  parts.title = UIView::withFrame<UILabel>({});
  parts.title->setFont(UIFont::systemFontOfSize(fontSize));
  parts.title->setTextAlignment(NSTextAlignment::Center);
  parts.title->setText(titleOf(action));
  parts.separator = UIView::withFrame<UIView>({});
  parts.separator->setUserInteractionEnabled(false);
  parts.separator->setHidden(position == RowPosition::First);
  row->addSubview(parts.title);
  row->addSubview(parts.separator);
  recolor(row);
  return row;
}

void defineActionRow() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"_controlStateChanged", &controlStateChanged>(),
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
      objc::method<"layoutSubviews", &layoutSubviews>(),
  };
  objc::defineClassWithState<Row>(methods);
}

}  // namespace springboard
