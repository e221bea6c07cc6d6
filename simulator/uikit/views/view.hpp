// The state of a UIView, and the functions that view classes share. Lengths are in points. Main thread only.
//
// The toolkit adds the following messages to UIView. Subclasses can override them.
//   -_drawContentInCanvas:(void*)   draws the content of the view on a drawing::Canvas, in the coordinates of
//                                   shownBounds()
//   -_contentArea                   returns the rectangle that clips the content, in the same coordinates. The default
//                                   is the bounds. An empty rectangle means that there is no content to draw.
//   -_contentReach:(CGFloat)        returns the distance in pixels, outside the content area, up to which the content
//                                   depends on the pixels behind the view. The argument is the number of pixels per
//                                   point. Only a backdrop returns a value other than 0.
//   -_describe:(void*)              calls super and then adds the fields of the class to an nlohmann::ordered_json
//   -_setPreferredWidth:(CGFloat)   receives the width that the layout has found. The layout then reads
//                                   -intrinsicContentSize again. Only views whose intrinsic height depends on their
//                                   width implement this method.
//   -_firstBaselineOffset           returns the distance from the top of the view to its first baseline. A view without
//                                   this method has its baseline at the bottom.
//   -intrinsicContentSize           returns -1 for each axis without an intrinsic size
#pragma once

#include <memory>

#include "objc/class_definition.hpp"
#include "platform/ui_view.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/geometry.hpp"
#include "simulator/uikit/environment/environment.hpp"

// The value that represents a missing intrinsic length.
inline constexpr CGFloat UIViewNoIntrinsicMetric = -1;

namespace uikit {
class ViewRecord;
}

struct ViewState {
  ViewState();
  ~ViewState();
  ViewState(const ViewState&) = delete;
  ViewState& operator=(const ViewState&) = delete;

  // The runtime lists this member as the instance variable _gestureRecognizers. It is nil if there are no recognizers.
  objc::Ref<NSMutableArray> gestureRecognizers;
  std::unique_ptr<uikit::ViewRecord> record;
};

template <>
struct objc::StateOf<UIView> {
  using Type = ViewState;
};

namespace uikit {

// Return the values that the screen currently shows. Running animations can change them.
CGRect shownBounds(const UIView* view);
drawing::CornerShape shownCorners(const UIView* view);

// Returns the layout direction of the view, which depends on its semantic content attribute and the language.
LayoutDirection effectiveDirection(const UIView* view);
// Returns the frame, mirrored inside the view if the layout direction of the view is right to left.
CGRect mirroredIfNeeded(const UIView* view, CGRect frame);

// Returns the first view controller in the view's responder chain, or nil if there is none.
NSObject* nearestViewController(const UIView* view);

// Call this when the intrinsic size has changed. The constraints are solved again before the next layout.
inline void invalidateIntrinsicContentSize(UIView* view) { objc::send<void, "invalidateIntrinsicContentSize">(view); }
inline void setNeedsDisplay(UIView* view) { objc::send<void, "setNeedsDisplay">(view); }
inline void setNeedsLayout(UIView* view) { objc::send<void, "setNeedsLayout">(view); }

inline drawing::Rectangle rectangle(const CGRect& rect) {
  return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}
inline CGRect rectangle(const drawing::Rectangle& rect) { return {{rect.x, rect.y}, {rect.width, rect.height}}; }

// Returns the rectangle, extended by the margin on each side.
inline CGRect outset(const CGRect& rect, CGFloat margin) {
  return {{rect.origin.x - margin, rect.origin.y - margin},
          {rect.size.width + 2 * margin, rect.size.height + 2 * margin}};
}

}  // namespace uikit
