#include "simulator/springboard/long_look/long_look_close_button.hpp"

#include "simulator/drawing/canvas.hpp"
#include "simulator/springboard/platter/platter_style.hpp"
#include "simulator/uikit/accessibility/accessible_properties.hpp"
#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view.hpp"

class NCLongLookCloseButton : public objc::Interface<"NCLongLookCloseButton", UIControl> {};

namespace springboard {

namespace {

constexpr double radius = 11;
constexpr double crossArmLength = 4;
constexpr double lineWidth = 1.75;

void draw(NCLongLookCloseButton* self, void* target) {
  drawing::Canvas& canvas = *static_cast<drawing::Canvas*>(target);
  const drawing::Rectangle area = uikit::rectangle(uikit::shownBounds(self));
  const drawing::Point center = {area.x + area.width / 2, area.y + area.height / 2};
  const bool isPressed = objc::state<UIControl>(self).highlighted;
  const drawing::Color disc = uikit::colorOf(isPressed ? secondaryTextColor(self) : separatorColor(self));
  canvas.fillRoundedRectangle({center.x - radius, center.y - radius, 2 * radius, 2 * radius}, {radius}, disc);
  const drawing::Color cross = uikit::colorOf(secondaryTextColor(self));
  canvas.strokeLine({center.x - crossArmLength, center.y - crossArmLength},
                    {center.x + crossArmLength, center.y + crossArmLength}, lineWidth, cross);
  canvas.strokeLine({center.x - crossArmLength, center.y + crossArmLength},
                    {center.x + crossArmLength, center.y - crossArmLength}, lineWidth, cross);
}

}  // namespace

objc::Ref<UIControl> makeCloseButton() {
  auto button = UIView::withFrame<NCLongLookCloseButton>({});
  uikit::makeAccessible(button, uikit::AccessibilityTraitButton, "Close"_ns);
  return button;
}

void defineCloseButton() {
  static constexpr objc::MethodEntry methods[] = {objc::method<"_drawContentInCanvas:", &draw>()};
  objc::defineClass<NCLongLookCloseButton>(methods);
}

}  // namespace springboard
