// Functions that the layout of all parts of a banner uses: creation, size and corners of subviews. Sizes are in points.
// Main thread.
#pragma once

#include "platform/ui_view.hpp"

// Creates a view whose frame depends on its constraints only. Add the view to the banner before you activate its
// constraints.
template <class View>
objc::Ref<View> makeConstrained() {
  objc::Ref<View> view = UIView::withFrame<View>({});
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  return view;
}

inline void setSize(UIView* view, CGFloat width, CGFloat height) {
  view->widthAnchor()->equalToConstant(width)->activated();
  view->heightAnchor()->equalToConstant(height)->activated();
}

inline void roundCorners(UIView* view, CGFloat radius) {
  view->layer()->setCornerRadius(radius);
  view->layer()->setContinuousCorners(true);
}

// Converts a size from the settings.
inline CGFloat points(NSInteger size) { return static_cast<CGFloat>(size); }
