#include "simulator/settings/back_button.hpp"

#include "simulator/settings/page_style.hpp"
#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view.hpp"

namespace settings_application {

namespace {

constexpr CGFloat chevronLeft = 9;
constexpr CGFloat chevronWidth = 10;
constexpr CGFloat chevronLineWidth = 2.6;
constexpr CGFloat titleLeft = 26;
constexpr CGFloat pressedAlpha = 0.3;

void layoutSubviews(PSBackButton* self) {
  objc::sendSuper<"PSBackButton", void, "layoutSubviews">(self);
  if (objc::state(self).title == nullptr) return;
  const CGSize size = self->bounds().size;
  objc::state(self).title->setFrame(
      uikit::mirroredIfNeeded(self, {{titleLeft, 0}, {size.width - titleLeft, size.height}}));
}

void draw(PSBackButton* self, void* target) {
  auto& canvas = *static_cast<drawing::Canvas*>(target);
  const CGSize size = self->bounds().size;
  const bool isMirrored = uikit::effectiveDirection(self) == uikit::LayoutDirection::RightToLeft;
  const auto at = [&](CGFloat x, CGFloat y) {
    return drawing::Point{isMirrored ? size.width - x : x, size.height / 2 + y};
  };
  const drawing::Color color = uikit::colorOf(uikit::tintColor(uikit::styleOf(self)));
  const drawing::Point tip = at(chevronLeft, 0);
  for (const CGFloat y : {-chevronWidth + 1, chevronWidth - 1})
    canvas.strokeLine(tip, at(chevronLeft + chevronWidth - 1, y), chevronLineWidth, color);
}

void recolor(PSBackButton* self) { objc::state(self).title->setTextColor(uikit::tintColor(uikit::styleOf(self))); }

void controlStateChanged(PSBackButton* self) {
  objc::sendSuper<"PSBackButton", void, "_controlStateChanged">(self);
  self->setAlpha(objc::state<UIControl>(self).highlighted ? pressedAlpha : 1);
}

void traitCollectionDidChange(PSBackButton* self, UITraitCollection* previous) {
  objc::sendSuper<"PSBackButton", void, "traitCollectionDidChange:">(self, previous);
  recolor(self);
}

}  // namespace

objc::Ref<PSBackButton> makeBackButton(NSString* title) {
  auto button = UIView::withFrame<PSBackButton>({});
  objc::state(button.get()).title = makeLabel(textFontSize);
  objc::state(button.get()).title->setText(title);
  button->addSubview(objc::state(button.get()).title);
  recolor(button);
  return button;
}

CGFloat widthOfBackButton(const PSBackButton* button) {
  return titleLeft + widthOfLabel(objc::state(button).title) + 1;
}

void defineBackButton() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"layoutSubviews", &layoutSubviews>(),
      objc::method<"_drawContentInCanvas:", &draw>(),
      objc::method<"_controlStateChanged", &controlStateChanged>(),
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
  };
  objc::defineClassWithState<PSBackButton>(methods);
}

}  // namespace settings_application
