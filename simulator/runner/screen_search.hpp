// Where things are on the screen: points inside views, and the view that shows a text.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/ui_view.hpp"

namespace runner {

// In points of the screen, laid out as it will be when animations have ended.
CGRect frameOnScreen(const UIView* view);

// The same, as the screen shows it at this moment of its animations.
CGRect shownFrameOnScreen(const UIView* view);

// The middle of what the screen shows of the rectangle; nothing where it is outside.
std::optional<CGPoint> middleOnScreen(const CGRect& rectangle);

bool isOnScreen(CGPoint point);

// The frontmost visible label or control with exactly this text; nil without one.
UIView* viewThatReads(const std::string& text);

// All texts that can be read, front to back.
std::vector<std::string> readableTexts();

}  // namespace runner
