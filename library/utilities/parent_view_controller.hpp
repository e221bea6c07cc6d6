// The category UIView(plon): the view controller of a view. The category's name is fixed by the interface. Main thread.
#pragma once

#include "platform/ui_view.hpp"

// Adds the category's method to UIView.
void registerViewUtilities();

// The first responder in the view's responder chain that is not a view. It need not be a view controller. nil if the
// chain ends before.
inline UIResponder* parentViewController(UIView* view) {
  return objc::send<UIResponder*, "parentViewController">(view);
}
