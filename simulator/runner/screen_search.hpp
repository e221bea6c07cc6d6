// Finds views and points on the screen. All coordinates are points of the screen. Main thread.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/ui_view.hpp"

namespace runner {

// Returns the frame that the view will have after all animations have ended.
CGRect frameOnScreen(const UIView* view);

// Returns the frame that the screen currently shows, which running animations can change.
CGRect presentedFrameOnScreen(const UIView* view);

// Returns the middle of the part of the rectangle that is on the screen. Returns no value if the whole rectangle is
// outside the screen.
std::optional<CGPoint> middleOnScreen(const CGRect& rectangle);

bool isOnScreen(CGPoint point);

// Returns the frontmost visible label or control with exactly this text. Returns nil if there is none. The view is
// borrowed.
UIView* viewWithText(const std::string& text);

// Returns all visible texts, from front to back.
std::vector<std::string> readableTexts();

}  // namespace runner
