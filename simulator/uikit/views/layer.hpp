// What a layer shows, shared by a view and its CALayer: geometry, color, corners and opacity.
#pragma once

#include <memory>

#include "objc/class_definition.hpp"
#include "platform/ca_layer.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/views/cg_color.hpp"

namespace uikit {

struct LayerRecord {
  // The frame is kept as origin and size, so that a frame that was set reads back exactly; the center is derived.
  Animated<CGPoint> origin{{}};
  Animated<CGRect> bounds{{}};
  Animated<double> opacity{1};
  Animated<double> cornerRadius{0};
  Animated<drawing::Color> background{{0, 0, 0, 0}};
  CGColor backgroundValue{};  // lent by -backgroundColor
  bool hasBackground = false;
  bool continuousCorners = false;
  bool masksToBounds = false;
  bool hidden = false;

  void removeAnimations();
};

inline CGRect modelFrame(const LayerRecord& layer) { return {layer.origin.model(), layer.bounds.model().size}; }
inline CGRect shownFrame(const LayerRecord& layer) { return {layer.origin.shown(), layer.bounds.shown().size}; }

// nullptr removes the color.
void setBackground(LayerRecord& layer, const drawing::Color* color);
void setOpacity(LayerRecord& layer, double opacity);
void setHidden(LayerRecord& layer, bool hidden);
void setMasksToBounds(LayerRecord& layer, bool masks);

}  // namespace uikit

struct LayerState {
  std::shared_ptr<uikit::LayerRecord> record = std::make_shared<uikit::LayerRecord>();
};
template <>
struct objc::StateOf<CALayer> {
  using Type = LayerState;
};
