// UIView's state, and what view classes share beside their messages.
//
// Messages of the toolkit's own, for subclasses to override:
//   -_drawContentInCanvas:(void*)   draws the view's content on a drawing::Canvas in the coordinates of shownBounds()
//   -_contentArea                   the rectangle that content is cut to, in the same coordinates: the bounds, unless a
//                                   class says otherwise; empty where there is none, and nothing is drawn then
//   -_contentReach:(CGFloat)        how many pixels, so many to a point, around that area what is beneath has a part in
//                                   the content; 0 for all but backdrops
//   -_describe:(void*)              adds the class's fields to an nlohmann::ordered_json, after super
//   -_setPreferredWidth:(CGFloat)   answered by views whose intrinsic height depends on their width: the layout tells
//                                   the width it found and then reads -intrinsicContentSize again
//   -_firstBaselineOffset           points from the top to the first baseline; without it the bottom edge counts
//   -intrinsicContentSize           -1 in an axis stands for none
#pragma once

#include <memory>

#include "objc/class_definition.hpp"
#include "platform/ui_view.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/geometry.hpp"
#include "simulator/uikit/environment/environment.hpp"

// An axis in which a view has no intrinsic size.
inline constexpr CGFloat UIViewNoIntrinsicMetric = -1;

namespace uikit {
class ViewRecord;
}

struct ViewState {
  ViewState();
  ~ViewState();
  ViewState(const ViewState&) = delete;
  ViewState& operator=(const ViewState&) = delete;

  // The instance variable _gestureRecognizers: nil while there are none.
  objc::Ref<NSMutableArray> gestureRecognizers;
  std::unique_ptr<uikit::ViewRecord> record;
};

template <>
struct objc::StateOf<UIView> {
  using Type = ViewState;
};

namespace uikit {

// The values on screen at this moment, animations in flight included.
CGRect shownBounds(const UIView* view);
drawing::CornerShape shownCorners(const UIView* view);

// Where leading is, after the view's semantic content attribute and the language.
LayoutDirection effectiveDirection(const UIView* view);
// Where a frame inside the view stands, given as for a language from left to right.
CGRect mirroredIfNeeded(const UIView* view, CGRect frame);

// The nearest view controller up the view's responder chain, nil without one.
NSObject* nearestViewController(const UIView* view);

// Intrinsic sizes changed: the constraints are solved again before the view is next looked at.
inline void invalidateIntrinsicContentSize(UIView* view) { objc::send<void, "invalidateIntrinsicContentSize">(view); }
inline void setNeedsDisplay(UIView* view) { objc::send<void, "setNeedsDisplay">(view); }
inline void setNeedsLayout(UIView* view) { objc::send<void, "setNeedsLayout">(view); }

inline drawing::Rectangle rectangle(const CGRect& rect) {
  return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}
inline CGRect rectangle(const drawing::Rectangle& rect) { return {{rect.x, rect.y}, {rect.width, rect.height}}; }

// Larger by so many points on each side.
inline CGRect outset(const CGRect& rect, CGFloat margin) {
  return {{rect.origin.x - margin, rect.origin.y - margin},
          {rect.size.width + 2 * margin, rect.size.height + 2 * margin}};
}

}  // namespace uikit
