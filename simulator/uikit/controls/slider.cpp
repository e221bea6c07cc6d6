#include "simulator/uikit/controls/slider.hpp"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "simulator/uikit/controls/thumb.hpp"
#include "simulator/uikit/description/view_tree.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "simulator/uikit/touch/touch.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view.hpp"

struct SliderState {
  uikit::SliderRange range;
  double value = 0;
  CGFloat grip = 0;  // the distance from the center of the thumb to the finger
  bool isDragged = false;
  objc::Ref<uikit::UIThumbView> thumb;
};
template <>
struct objc::StateOf<UISlider> {
  using Type = SliderState;
};

namespace uikit {

double nearestStop(const SliderRange& range, double value) {
  const double clamped = std::clamp(value, range.min, range.max);
  if (range.segments <= 0) return clamped;
  const double segment = (range.max - range.min) / range.segments;
  return range.min + std::round((clamped - range.min) / segment) * segment;
}

namespace {

constexpr CGFloat thumbDiameter = 28;
// The maximum horizontal distance of a touch from the center of the thumb.
constexpr CGFloat maxGrip = 30;
constexpr CGFloat trackHeight = 4;
constexpr CGFloat tickHeight = 10;
constexpr CGFloat tickWidth = 1;

bool isRightToLeft(const UISlider* self) { return effectiveDirection(self) == LayoutDirection::RightToLeft; }

CGFloat travel(const UISlider* self) { return std::max<CGFloat>(self->bounds().size.width - thumbDiameter, 1); }

// Returns the x coordinate of the center of the thumb at this value.
CGFloat positionOf(const UISlider* self, double value) {
  const SliderRange& range = objc::state(self).range;
  const double fraction = (std::clamp(value, range.min, range.max) - range.min) / (range.max - range.min);
  return thumbDiameter / 2 + travel(self) * (isRightToLeft(self) ? 1 - fraction : fraction);
}

double valueAt(const UISlider* self, CGFloat position) {
  const SliderRange& range = objc::state(self).range;
  const double fraction = (position - thumbDiameter / 2) / travel(self);
  return nearestStop(range, range.min + (range.max - range.min) * (isRightToLeft(self) ? 1 - fraction : fraction));
}

void update(UISlider* self) {
  const CGFloat top = (self->bounds().size.height - thumbDiameter) / 2;
  const CGFloat left = positionOf(self, objc::state(self).value) - thumbDiameter / 2;
  objc::state(self).thumb->setFrame({{left, top}, {thumbDiameter, thumbDiameter}});
  setNeedsDisplay(self);
}

UISlider* initWithFrame(UISlider* self, CGRect frame) {
  self = objc::sendSuper<"UISlider", UISlider*, "initWithFrame:">(self, frame);
  if (self == nullptr) return nullptr;
  objc::state(self).thumb = makeThumb(thumbDiameter);
  self->addSubview(objc::state(self).thumb);
  return self;
}

void layoutSubviews(UISlider* self) {
  objc::sendSuper<"UISlider", void, "layoutSubviews">(self);
  update(self);
}

double value(UISlider* self) { return objc::state(self).value; }

void setValue(UISlider* self, double value) {
  SliderState& state = objc::state(self);
  if (state.isDragged || state.value == value) return;
  state.value = std::clamp(value, state.range.min, state.range.max);
  update(self);
}

CGFloat touchPosition(UISlider* self, NSObject* touches) { return anyTouch(touches)->locationInView(self).x; }

void touchesBegan(UISlider* self, NSObject* touches, NSObject* event) {
  SliderState& state = objc::state(self);
  state.grip = touchPosition(self, touches) - positionOf(self, state.value);
  state.isDragged = objc::state<UIControl>(self).enabled && std::abs(state.grip) <= maxGrip;
  if (state.isDragged) objc::sendSuper<"UISlider", void, "touchesBegan:withEvent:">(self, touches, event);
}

void touchesMoved(UISlider* self, NSObject* touches, NSObject* event) {
  objc::sendSuper<"UISlider", void, "touchesMoved:withEvent:">(self, touches, event);
  SliderState& state = objc::state(self);
  if (!state.isDragged) return;
  const double wanted = valueAt(self, touchPosition(self, touches) - state.grip);
  if (wanted == state.value) return;
  state.value = wanted;
  update(self);
  sendActions(self, valueChanged);
}

void touchesEnded(UISlider* self, NSObject* touches, NSObject* event) {
  objc::state(self).isDragged = false;
  objc::sendSuper<"UISlider", void, "touchesEnded:withEvent:">(self, touches, event);
}

void touchesCancelled(UISlider* self, NSObject* touches, NSObject* event) {
  objc::state(self).isDragged = false;
  objc::sendSuper<"UISlider", void, "touchesCancelled:withEvent:">(self, touches, event);
}

// Prevents other views from scrolling while the user drags the thumb.
bool gestureRecognizerShouldBegin(UISlider* self, UIGestureRecognizer* recognizer) {
  return !objc::state(self).isDragged &&
         objc::sendSuper<"UISlider", bool, "gestureRecognizerShouldBegin:">(self, recognizer);
}

void drawTrack(UISlider* self, drawing::Canvas& canvas, CGFloat from, CGFloat to, const drawing::Color& color) {
  const CGFloat left = std::min(from, to);
  canvas.fillRoundedRectangle(
      {left, (self->bounds().size.height - trackHeight) / 2, std::max(from, to) - left, trackHeight}, {trackHeight / 2},
      color);
}

void drawTicks(UISlider* self, drawing::Canvas& canvas, const drawing::Color& color) {
  const SliderRange& range = objc::state(self).range;
  const CGFloat top = (self->bounds().size.height - tickHeight) / 2;
  for (int tick = 0; range.segments > 0 && tick <= range.segments; ++tick) {
    const CGFloat center = positionOf(self, range.min + (range.max - range.min) * tick / range.segments);
    canvas.fillRoundedRectangle({center - tickWidth / 2, top, tickWidth, tickHeight}, {tickWidth / 2}, color);
  }
}

void draw(UISlider* self, void* target) {
  auto& canvas = *static_cast<drawing::Canvas*>(target);
  const SliderState& state = objc::state(self);
  const bool isDark = styleOf(self) == UIUserInterfaceStyle::Dark;
  const drawing::Color rest = isDark ? drawing::Color{0.275, 0.275, 0.29, 1} : drawing::Color{0.86, 0.86, 0.875, 1};
  const CGFloat thumb = positionOf(self, state.value);
  drawTicks(self, canvas, rest);
  drawTrack(self, canvas, positionOf(self, state.range.min), positionOf(self, state.range.max), rest);
  drawTrack(self, canvas, positionOf(self, state.range.min), thumb, colorOf(tintColor(styleOf(self))));
}

void describe(UISlider* self, void* description) {
  objc::sendSuper<"UISlider", void, "_describe:">(self, description);
  descriptionAt(description)["value"] = objc::state(self).value;
}

}  // namespace

void defineSlider() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"initWithFrame:", &initWithFrame>(),
      objc::method<"layoutSubviews", &layoutSubviews>(),
      objc::method<"_value", &value>(),
      objc::method<"_setValue:", &setValue>(),
      objc::method<"touchesBegan:withEvent:", &touchesBegan>(),
      objc::method<"touchesMoved:withEvent:", &touchesMoved>(),
      objc::method<"touchesEnded:withEvent:", &touchesEnded>(),
      objc::method<"touchesCancelled:withEvent:", &touchesCancelled>(),
      objc::method<"gestureRecognizerShouldBegin:", &gestureRecognizerShouldBegin>(),
      objc::method<"_drawContentInCanvas:", &draw>(),
      objc::method<"_describe:", &describe>(),
  };
  objc::defineClassWithState<UISlider>(methods);
}

}  // namespace uikit

void UISlider::setRange(const uikit::SliderRange& range) {
  objc::state(this).range = range;
  objc::state(this).value = range.min;
  uikit::update(this);
}
