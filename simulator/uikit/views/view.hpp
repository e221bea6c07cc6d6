// UIView's state, and the functions that view classes share. Lengths are in points. Main thread only.
//
// Messages that the toolkit adds to UIView and that subclasses override:
//   -_drawContentInCanvas:(void*)   draws the content of the view on a drawing::Canvas, in the coordinates of
//                                   shownBounds()
//   -_contentArea                   the rectangle that clips the content, in the same coordinates. The default is the
//                                   bounds. An empty rectangle means that there is no content to draw.
//   -_contentReach:(CGFloat)        how far outside that area, in pixels, the content depends on the pixels behind the
//                                   view; the argument is the number of pixels per point. 0 for all views but
//                                   backdrops.
//   -_describe:(void*)              adds the fields of the class to an nlohmann::ordered_json, after calling super
//   -_setPreferredWidth:(CGFloat)   only for views whose intrinsic height depends on their width: the layout passes the
//                                   width that it has found and then reads -intrinsicContentSize again
//   -_firstBaselineOffset           the distance from the top of the view to its first baseline; a view without this
//                                   method has its baseline at the bottom
//   -intrinsicContentSize           -1 in an axis without an intrinsic size
#pragma once

#include <memory>

#include "objc/class_definition.hpp"
#include "platform/ui_view.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/geometry.hpp"
#include "simulator/uikit/environment/environment.hpp"

// The intrinsic length in an axis without an intrinsic size.
inline constexpr CGFloat UIViewNoIntrinsicMetric = -1;

namespace uikit {
class ViewRecord;
}

struct ViewState {
  ViewState();
  ~ViewState();
  ViewState(const ViewState&) = delete;
  ViewState& operator=(const ViewState&) = delete;

  // The instance variable _gestureRecognizers; nil if there are no recognizers.
  objc::Ref<NSMutableArray> gestureRecognizers;
  std::unique_ptr<uikit::ViewRecord> record;
};

template <>
struct objc::StateOf<UIView> {
  using Type = ViewState;
};

namespace uikit {

// The values currently on the screen, including the effect of running animations.
CGRect shownBounds(const UIView* view);
drawing::CornerShape shownCorners(const UIView* view);

// The layout direction of the view, according to its semantic content attribute and the language.
LayoutDirection effectiveDirection(const UIView* view);
// Mirrors a frame inside the view if the layout direction of the view is right to left.
CGRect mirroredIfNeeded(const UIView* view, CGRect frame);

// The first view controller in the view's responder chain; nil if there is none.
NSObject* nearestViewController(const UIView* view);

// Call this when the intrinsic size has changed. The constraints are solved again before the next layout.
inline void invalidateIntrinsicContentSize(UIView* view) { objc::send<void, "invalidateIntrinsicContentSize">(view); }
inline void setNeedsDisplay(UIView* view) { objc::send<void, "setNeedsDisplay">(view); }
inline void setNeedsLayout(UIView* view) { objc::send<void, "setNeedsLayout">(view); }

inline drawing::Rectangle rectangle(const CGRect& rect) {
  return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}
inline CGRect rectangle(const drawing::Rectangle& rect) { return {{rect.x, rect.y}, {rect.width, rect.height}}; }

// The rectangle, extended by the margin on each side.
inline CGRect outset(const CGRect& rect, CGFloat margin) {
  return {{rect.origin.x - margin, rect.origin.y - margin},
          {rect.size.width + 2 * margin, rect.size.height + 2 * margin}};
}

}  // namespace uikit
