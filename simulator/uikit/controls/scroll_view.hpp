// UIScrollView: a view that the user scrolls vertically with a finger. Its subviews are in the coordinates of the
// content, whose top is 0. The bounds begin at the content offset. Lengths are in points. Main thread only.
#pragma once

#include "platform/ui_view.hpp"

class UIScrollView : public objc::Interface<"UIScrollView", UIView> {
 public:
  CGFloat contentHeight() const { return objc::send<CGFloat, "_contentHeight">(this); }
  // Sets the height of the content. If the offset is now too large, reduces it.
  void setContentHeight(CGFloat height) { objc::send<void, "_setContentHeight:">(this, height); }
  CGFloat contentOffset() const { return bounds().origin.y; }
  // Scrolls to the offset, which is clamped to the ends of the content. Stops the deceleration.
  void setContentOffset(CGFloat offset) { objc::send<void, "_setContentOffset:">(this, offset); }
};

namespace uikit {

// The view scrolls with a finger that is dragged on it or on its subviews. If the finger is still moving when it leaves
// the screen, the view continues to scroll and slows down. A touch stops it. Each change of the offset requests
// -layoutSubviews.
void defineScrollView();

}  // namespace uikit
