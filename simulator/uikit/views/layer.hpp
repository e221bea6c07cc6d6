// The geometry, background, corners and opacity of a layer. A view shares this record with its CALayer. Lengths are in
// points. Main thread only.
#pragma once

#include <memory>

#include "objc/class_definition.hpp"
#include "platform/ca_layer.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/views/color.hpp"

namespace uikit {

struct LayerRecord {
  // The frame is stored as origin and size, and the center is computed from them. If the center were stored, rounding
  // errors could make a frame differ from the frame that was set.
  Animated<CGPoint> origin{{}};
  Animated<CGRect> bounds{{}};
  Animated<double> opacity{1};
  Animated<double> cornerRadius{0};
  Animated<drawing::Color> background{{0, 0, 0, 0}};
  CGColor backgroundValue{};  // the result of -backgroundColor points to this value
  bool hasBackground = false;
  bool continuousCorners = false;
  bool masksToBounds = false;
  bool hidden = false;

  bool isAnimating() const;
  void removeAnimations();
};

inline CGRect modelFrame(const LayerRecord& layer) { return {layer.origin.model(), layer.bounds.model().size}; }
inline CGRect shownFrame(const LayerRecord& layer) { return {layer.origin.shown(), layer.bounds.shown().size}; }

// Sets the background color. Null removes it.
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
