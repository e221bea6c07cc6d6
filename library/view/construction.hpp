// Functions with which the layout creates the subviews of a banner and sets their sizes and corners. Sizes are in
// points. Main thread.
#pragma once

#include "platform/ui_view.hpp"

// Creates a view whose frame depends only on its constraints. Add the view to the banner before you activate its
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

// Converts a size in the settings to a length.
inline CGFloat points(NSInteger size) { return static_cast<CGFloat>(size); }
