// The shape of what notifications are shown on.
#pragma once

#include "platform/ui_view.hpp"

namespace springboard {

inline constexpr CGFloat cardCornerRadius = 13;

inline void makeCard(UIView* view) {
  view->layer()->setCornerRadius(cardCornerRadius);
  view->layer()->setContinuousCorners(true);
  view->setClipsToBounds(true);
}

}  // namespace springboard
