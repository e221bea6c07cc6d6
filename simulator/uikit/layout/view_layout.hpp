// The layout of views. The functions mark views that need layout, and run the layout. Views must not be nil. Main
// thread only.
#pragma once

#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

// Call this when a value that affects the constraints of the view's tree has changed.
void invalidateConstraints(const UIView* view);
// Requests that the next layout sets the frames of the view's subviews.
void markNeedsLayout(UIView* view);
// Lays out the view and its descendants, and before them the ancestors that need layout.
void layoutIfNeeded(UIView* view);

}  // namespace uikit
