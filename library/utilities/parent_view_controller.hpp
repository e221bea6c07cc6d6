// The category UIView(plon): the view controller of a view. The name of the category is part of the library's public
// interface; do not change it. Main thread.
#pragma once

#include "platform/ui_view.hpp"

// Adds the category's method to UIView.
void registerViewUtilities();

// Returns the nearest object in the view's responder chain that is not a view. This object is not necessarily a view
// controller. Returns nil if the chain contains only views.
inline UIResponder* parentViewController(UIView* view) {
  return objc::send<UIResponder*, "parentViewController">(view);
}
