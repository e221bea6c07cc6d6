// A banner's height and position: the constants of its bottom constraints and of its top constraint, set or animated.
#pragma once

#include "library/view/brim_container.hpp"

CGFloat defaultHeight(BrimContainer* self);
CGFloat defaultExpandedHeight(BrimContainer* self);
CGFloat defaultOffset(BrimContainer* self);
// How far above its place a banner must be dragged to be dismissed.
CGFloat defaultDismiss(BrimContainer* self);
CGFloat height(BrimContainer* self);
CGFloat offset(BrimContainer* self);
bool isFullyExpanded(BrimContainer* self);

void updateTop(BrimContainer* self, CGFloat value);
void updateTopAnimated(BrimContainer* self, CGFloat value, bool animated, objc::Block<void(bool)>* completion);
void updateTopFor(BrimContainer* self, CGFloat value, bool animated, double duration,
                  objc::Block<void(bool)>* completion);
void updateHeight(BrimContainer* self, CGFloat value);
void updateHeightAnimated(BrimContainer* self, CGFloat value, bool animated, objc::Block<void(bool)>* completion);
void setMaxLineCount(BrimContainer* self, NSInteger lines);
