// Determines which views the user can see and touch. Coordinates are points of the screen. The functions use the values
// that views have after all animations. Main thread only.
#pragma once

#include <optional>

#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

// Returns whether the view itself is shown, regardless of whether its superviews are hidden.
bool isVisible(const UIView* view);

// Returns the part of the rectangle that is on the screen. It is empty if there is none.
CGRect partOnScreen(const CGRect& rectangle);

// Returns a point inside the rectangle at which no other view covers the view. A touch at this point does not reach an
// accessible control inside the view. Returns no value if there is no such point.
std::optional<CGPoint> touchPointOf(const UIView* view, const CGRect& rectangle);

}  // namespace uikit
