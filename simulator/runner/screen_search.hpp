// Finds views and points on the screen. All coordinates are points of the screen. Main thread.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/ui_view.hpp"

namespace runner {

// The frame that the view has when all animations have ended.
CGRect frameOnScreen(const UIView* view);

// The frame that the screen shows now, during animations.
CGRect presentedFrameOnScreen(const UIView* view);

// The middle of the visible part of the rectangle. No value if all of it is outside the screen.
std::optional<CGPoint> middleOnScreen(const CGRect& rectangle);

bool isOnScreen(CGPoint point);

// The frontmost visible label or control whose text is exactly this one. Nil if there is none. Borrowed.
UIView* viewWithText(const std::string& text);

// All visible texts, from front to back.
std::vector<std::string> readableTexts();

}  // namespace runner
