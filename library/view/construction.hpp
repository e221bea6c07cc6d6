// Building blocks of the layout: the creation, size and corners of a banner's subviews. Sizes are points. Main thread.
#pragma once

#include "platform/ui_view.hpp"

// A new view that only constraints place. Add it to the banner before you activate its constraints.
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

// A size from the settings.
inline CGFloat points(NSInteger size) { return static_cast<CGFloat>(size); }
