// UIView(plon): the way from a view to what owns it. Main thread.
#pragma once

#include "platform/ui_view.hpp"

// Adds the category's method to UIView.
void registerViewUtilities();

// The first responder up the chain that is no view; nil where the chain ends before one.
inline UIResponder* parentViewController(UIView* view) {
  return objc::send<UIResponder*, "parentViewController">(view);
}
