// Taps and drags on a banner: a tap opens the application, a drag upward dismisses the banner, and a drag downward
// expands it. Distances are points. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

// Hook. A tap on the banner dismisses it and then opens the application.
void handleTap(objc::Original<void(BannerController*, NSObject*)> original, BannerController* self, NSObject* view);

// The action of the banner's pan gesture recognizer.
void panGestureHandler(BannerController* self, UIPanGestureRecognizer* recognizer);

// Moves the banner to its position at rest plus the offset.
void moveBanner(BannerController* self, CGFloat offset, BrimContainer* view, bool animated,
                objc::Block<void(bool)>* completion);
void moveBannerWithDuration(BannerController* self, CGFloat offset, BrimContainer* view, bool animated, double duration,
                            objc::Block<void(bool)>* completion);

// Increases the banner's height by a quarter of the distance, between its height at rest and its full height.
void expandBanner(BannerController* self, CGFloat distance, BrimContainer* view, bool animated,
                  objc::Block<void(bool)>* completion);
