#include "simulator/uikit/controls/switch.hpp"

#include <nlohmann/json.hpp>

#include "simulator/uikit/controls/thumb.hpp"
#include "simulator/uikit/description/view_tree.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "simulator/uikit/views/view.hpp"

struct SwitchState {
  bool isOn = false;
  objc::Ref<UIView> track;
  objc::Ref<uikit::UIThumbView> thumb;
};
template <>
struct objc::StateOf<UISwitch> {
  using Type = SwitchState;
};

namespace uikit {

namespace {

constexpr CGFloat thumbInset = 2;
constexpr CGFloat thumbDiameter = switchSize.height - 2 * thumbInset;
constexpr double animationSeconds = 0.22;

bool isDark(UISwitch* self) { return styleOf(self) == UIUserInterfaceStyle::Dark; }

UIColor* trackColor(UISwitch* self) {
  if (objc::state(self).isOn)
    return isDark(self) ? UIColor::withRed(0.19, 0.82, 0.345, 1) : UIColor::withRed(0.204, 0.78, 0.349, 1);
  return isDark(self) ? UIColor::withRed(0.224, 0.224, 0.239, 1) : UIColor::withRed(0.914, 0.914, 0.922, 1);
}

CGRect thumbFrame(UISwitch* self) {
  const CGFloat left = objc::state(self).isOn ? switchSize.width - thumbInset - thumbDiameter : thumbInset;
  return mirroredIfNeeded(self, {{left, thumbInset}, {thumbDiameter, thumbDiameter}});
}

void update(UISwitch* self) {
  objc::state(self).track->setBackgroundColor(trackColor(self));
  objc::state(self).thumb->setFrame(thumbFrame(self));
}

UISwitch* initWithFrame(UISwitch* self, CGRect frame) {
  self = objc::sendSuper<"UISwitch", UISwitch*, "initWithFrame:">(self, CGRect{frame.origin, switchSize});
  if (self == nullptr) return nullptr;
  SwitchState& state = objc::state(self);
  state.track = UIView::withFrame<UIView>({{}, switchSize});
  state.track->layer()->setCornerRadius(switchSize.height / 2);
  state.track->setUserInteractionEnabled(false);
  state.thumb = makeThumb(thumbDiameter);
  self->addSubview(state.track);
  self->addSubview(state.thumb);
  self->addTarget(self, objc::selector<"_toggle">(), UIControlEvents::TouchUpInside);
  update(self);
  return self;
}

bool isOn(UISwitch* self) { return objc::state(self).isOn; }

void setOn(UISwitch* self, bool on, bool animated) {
  if (objc::state(self).isOn == on) return;
  objc::state(self).isOn = on;
  if (!animated) return update(self);
  const objc::Ref<UISwitch> retained = objc::retain(self);
  UIView::animate(animationSeconds, objc::block([retained] { update(retained); }));
}

void toggle(UISwitch* self) {
  setOn(self, !objc::state(self).isOn, true);
  sendActions(self, valueChanged);
}

void traitCollectionDidChange(UISwitch* self, UITraitCollection* previous) {
  objc::sendSuper<"UISwitch", void, "traitCollectionDidChange:">(self, previous);
  update(self);
}

// The color of the track depends on the appearance, which is unknown until the view has a superview.
void didMoveToSuperview(UISwitch* self) {
  objc::sendSuper<"UISwitch", void, "didMoveToSuperview">(self);
  update(self);
}

void describe(UISwitch* self, void* description) {
  objc::sendSuper<"UISwitch", void, "_describe:">(self, description);
  descriptionAt(description)["on"] = objc::state(self).isOn;
}

}  // namespace

void defineSwitch() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"initWithFrame:", &initWithFrame>(),
      objc::method<"isOn", &isOn>(),
      objc::method<"setOn:animated:", &setOn>(),
      objc::method<"_toggle", &toggle>(),
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
      objc::method<"didMoveToSuperview", &didMoveToSuperview>(),
      objc::method<"_describe:", &describe>(),
  };
  objc::defineClassWithState<UISwitch>(methods);
}

}  // namespace uikit
