// The card style of platters: the rounded shape on which notifications are shown. Lengths are in points.
#pragma once

#include "platform/ui_view.hpp"

namespace springboard {

inline constexpr CGFloat cardCornerRadius = 13;

inline void applyCardStyle(UIView* view) {
  view->layer()->setCornerRadius(cardCornerRadius);
  view->layer()->setContinuousCorners(true);
  view->setClipsToBounds(true);
}

}  // namespace springboard
