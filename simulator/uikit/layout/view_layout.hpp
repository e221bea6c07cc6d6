// The layout of views: marking views that need layout, and the layout passes. Main thread only.
#pragma once

#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

// Call this when something has changed that the constraints of the view's tree depend on.
void invalidateConstraints(const UIView* view);
// Requests that the next layout sets the frames of the view's subviews.
void markNeedsLayout(UIView* view);
// Lays out the view and its descendants, starting with the ancestors that need layout.
void layoutIfNeeded(UIView* view);

}  // namespace uikit
