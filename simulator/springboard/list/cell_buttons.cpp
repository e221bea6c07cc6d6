#include "simulator/springboard/list/cell_buttons.hpp"

#include <algorithm>

#include "platform/ui_visual_effect_view.hpp"
#include "simulator/springboard/platter/platter_style.hpp"
#include "simulator/uikit/views/view.hpp"
#include "simulator/uikit/views/view_geometry.hpp"

namespace springboard {

namespace {

constexpr CGFloat gap = 8;
constexpr CGFloat fontSize = 15;

void recolor(CellButtons* self) {
  for (const UIView* button : {objc::state(self).view.get(), objc::state(self).clear.get()})
    if (button != nullptr) static_cast<UILabel*>(button->subviews()->objectAtIndex(1))->setTextColor(textColor(self));
}

void traitCollectionDidChange(CellButtons* self, UITraitCollection* previous) {
  objc::sendSuper<"NCNotificationListCellActionButtonsView", void, "traitCollectionDidChange:">(self, previous);
  recolor(self);
}

objc::Ref<UIView> addButton(CellButtons* buttons, NSString* title) {
  auto button = UIView::withFrame<UIView>({});
  applyCardShape(button);
  button->addSubview(UIVisualEffectView::withEffect(UIBlurEffect::withStyle(UIBlurEffectStyle::Regular)));
  auto label = UIView::withFrame<UILabel>({});
  label->setFont(UIFont::systemFontOfSize(fontSize));
  label->setTextAlignment(NSTextAlignment::Center);
  label->setNumberOfLines(2);
  label->setText(title);
  button->addSubview(label);
  buttons->addSubview(button);
  return button;
}

void place(const CellButtons* buttons, UIView* button, const CGRect& frame) {
  button->setFrame(uikit::mirroredIfNeeded(buttons, frame));
  for (NSUInteger index = 0; index < button->subviews()->count(); ++index)
    static_cast<UIView*>(button->subviews()->objectAtIndex(index))->setFrame({{}, frame.size});
}

}  // namespace

objc::Ref<CellButtons> makeCellButtons(std::size_t notifications) {
  auto buttons = UIView::withFrame<CellButtons>({});
  buttons->setClipsToBounds(true);
  CellButtonsState& parts = objc::state(buttons.get());
  parts.view = addButton(buttons, "View"_ns);
  parts.clear = addButton(buttons, notifications == 1 ? "Clear"_ns : "Clear All"_ns);
  recolor(buttons);
  return buttons;
}

void placeCellButtons(CellButtons* buttons, CGSize cell, CGFloat revealed) {
  const CGSize size = {std::max<CGFloat>(revealed - gap, 0), cell.height};
  buttons->setFrame(uikit::mirroredIfNeeded(buttons->superview(), {{cell.width - size.width, 0}, size}));
  const CGFloat width = std::max<CGFloat>((size.width - gap) / 2, 0);
  place(buttons, objc::state(buttons).view, {{0, 0}, {width, size.height}});
  place(buttons, objc::state(buttons).clear, {{width + gap, 0}, {width, size.height}});
}

std::optional<CellButton> cellButtonAt(const CellButtons* buttons, CGPoint point) {
  const CGPoint inside = uikit::convertPoint(point, buttons->superview(), buttons);
  if (uikit::contains(objc::state(buttons).view->frame(), inside)) return CellButton::View;
  if (uikit::contains(objc::state(buttons).clear->frame(), inside)) return CellButton::Clear;
  return std::nullopt;
}

void defineCellButtons() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
  };
  objc::defineClassWithState<CellButtons>(methods);
}

}  // namespace springboard
