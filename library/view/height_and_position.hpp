// A banner's height and position. The height is the constant of three bottom constraints: the banner ends that far
// below the lowest of body, picture and header. The position is the constant of the top constraint. Sizes are points.
// Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// The duration in seconds of a change of height, position or number of lines.
inline constexpr double resizeDuration = 0.15;

// Creates the bottom constraints, with the height at rest.
void addHeightConstraints(BrimContainer* self, BrimContainerState& state);

CGFloat defaultHeight(BrimContainer* self);
CGFloat defaultExpandedHeight(BrimContainer* self);
CGFloat defaultOffset(BrimContainer* self);
// The translation of a drag at which the banner is dismissed. Negative, because upward.
CGFloat defaultDismiss(BrimContainer* self);
CGFloat height(BrimContainer* self);
CGFloat offset(BrimContainer* self);
bool isFullyExpanded(BrimContainer* self);

// The completion is called after an animation. It is not called if nothing is animated.
void updateTop(BrimContainer* self, CGFloat value);
void updateTopAnimated(BrimContainer* self, CGFloat value, bool animated, objc::Block<void(bool)>* completion);
// Starts in a later run-loop iteration. Does nothing if animated while the banner has no superview.
void updateTopWithDuration(BrimContainer* self, CGFloat value, bool animated, double duration,
                           objc::Block<void(bool)>* completion);
void updateHeight(BrimContainer* self, CGFloat value);
void updateHeightAnimated(BrimContainer* self, CGFloat value, bool animated, objc::Block<void(bool)>* completion);
