#include "simulator/uikit/views/layer.hpp"

#include <algorithm>

#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/views/class_definitions.hpp"

namespace uikit {

bool LayerRecord::isAnimating() const {
  return origin.isAnimating() || bounds.isAnimating() || opacity.isAnimating() || cornerRadius.isAnimating() ||
         background.isAnimating();
}

void LayerRecord::removeAnimations() {
  origin.removeAnimations();
  bounds.removeAnimations();
  opacity.removeAnimations();
  cornerRadius.removeAnimations();
  background.removeAnimations();
}

void setBackground(LayerRecord& layer, const drawing::Color* color) {
  layer.hasBackground = color != nullptr;
  layer.background.set(color == nullptr ? drawing::Color{0, 0, 0, 0} : *color);
  noteDisplayChange();
}

void setOpacity(LayerRecord& layer, double opacity) {
  layer.opacity.set(opacity >= 0 ? std::min(opacity, 1.0) : 0);
  noteDisplayChange();
}

void setHidden(LayerRecord& layer, bool hidden) {
  if (layer.hidden == hidden) return;
  layer.hidden = hidden;
  noteDisplayChange();
}

void setMasksToBounds(LayerRecord& layer, bool masks) {
  if (layer.masksToBounds == masks) return;
  layer.masksToBounds = masks;
  noteDisplayChange();
}

namespace {

LayerRecord& recordOf(CALayer* self) { return *objc::state(self).record; }

void setBackgroundColor(CALayer* self, CGColorRef color) {
  setBackground(recordOf(self), color == nullptr ? nullptr : &color->color);
}

// Returns a color that is valid until the background color of the layer changes or the layer is deallocated.
CGColorRef backgroundColor(CALayer* self) {
  LayerRecord& layer = recordOf(self);
  if (!layer.hasBackground) return nullptr;
  layer.backgroundValue.color = layer.background.model();
  return &layer.backgroundValue;
}

void setCornerRadius(CALayer* self, CGFloat radius) {
  recordOf(self).cornerRadius.set(radius);
  noteDisplayChange();
}
CGFloat cornerRadius(CALayer* self) { return recordOf(self).cornerRadius.model(); }

void setContinuousCorners(CALayer* self, bool continuous) {
  recordOf(self).continuousCorners = continuous;
  noteDisplayChange();
}
bool continuousCorners(CALayer* self) { return recordOf(self).continuousCorners; }

void setMasks(CALayer* self, bool masks) { setMasksToBounds(recordOf(self), masks); }
bool masks(CALayer* self) { return recordOf(self).masksToBounds; }

void setLayerOpacity(CALayer* self, float opacity) { setOpacity(recordOf(self), static_cast<double>(opacity)); }
float opacity(CALayer* self) { return static_cast<float>(recordOf(self).opacity.model()); }

void setLayerHidden(CALayer* self, bool hidden) { setHidden(recordOf(self), hidden); }
bool isHidden(CALayer* self) { return recordOf(self).hidden; }

CGRect frame(CALayer* self) { return modelFrame(recordOf(self)); }
CGRect bounds(CALayer* self) { return recordOf(self).bounds.model(); }

void removeAllAnimations(CALayer* self) {
  recordOf(self).removeAnimations();
  noteDisplayChange();
}

}  // namespace

void defineLayer() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"setBackgroundColor:", &setBackgroundColor>(),
      objc::method<"backgroundColor", &backgroundColor>(),
      objc::method<"setCornerRadius:", &setCornerRadius>(),
      objc::method<"cornerRadius", &cornerRadius>(),
      objc::method<"setContinuousCorners:", &setContinuousCorners>(),
      objc::method<"continuousCorners", &continuousCorners>(),
      objc::method<"setMasksToBounds:", &setMasks>(),
      objc::method<"masksToBounds", &masks>(),
      objc::method<"setOpacity:", &setLayerOpacity>(),
      objc::method<"opacity", &opacity>(),
      objc::method<"setHidden:", &setLayerHidden>(),
      objc::method<"isHidden", &isHidden>(),
      objc::method<"frame", &frame>(),
      objc::method<"bounds", &bounds>(),
      objc::method<"removeAllAnimations", &removeAllAnimations>(),
  };
  objc::defineClassWithState<CALayer>(methods);
}

}  // namespace uikit
