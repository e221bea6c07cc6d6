// A banner's height and position. Here, the height is the distance from the lowest of body, picture and header to the
// banner's bottom edge. It is the constant of three bottom constraints. The position is the constant of the top
// constraint. Sizes are in points. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// The duration, in seconds, of an animated change of the height, the position or the number of lines.
inline constexpr double resizeDuration = 0.15;

// Creates the bottom constraints and sets the height at rest.
void addHeightConstraints(BrimContainer* self, BrimContainerState& state);

CGFloat defaultHeight(BrimContainer* self);
CGFloat defaultExpandedHeight(BrimContainer* self);
CGFloat defaultOffset(BrimContainer* self);
// If a drag ends at this translation or further upward, the banner is dismissed. The value is negative, because upward
// translations are negative.
CGFloat defaultDismiss(BrimContainer* self);
CGFloat height(BrimContainer* self);
CGFloat offset(BrimContainer* self);
bool isFullyExpanded(BrimContainer* self);

// The following functions change the position or the height. The completion block, which can be null, is called after
// an animation. If the change is not animated, the block is not called.
void updateTop(BrimContainer* self, CGFloat value);
void updateTopAnimated(BrimContainer* self, CGFloat value, bool animated, objc::Block<void(bool)>* completion);
// An animated change of the position starts in a later run-loop iteration. It does nothing if the banner has no
// superview.
void updateTopWithDuration(BrimContainer* self, CGFloat value, bool animated, double duration,
                           objc::Block<void(bool)>* completion);
void updateHeight(BrimContainer* self, CGFloat value);
void updateHeightAnimated(BrimContainer* self, CGFloat value, bool animated, objc::Block<void(bool)>* completion);
