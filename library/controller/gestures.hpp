// Taps and drags on a banner: a tap opens the application, a drag upward dismisses the banner, and a drag downward
// expands it. Distances are in points. A completion block, which can be null, is called only after an animation. Main
// thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

// Removes the platform's gesture recognizers from the notification's view and its content, and adds the controller's
// recognizers to the banner.
void replaceGestureRecognizers(BannerController* controller, UIView* view, UIView* content, BrimContainer* banner);

// Hook. A tap on the banner dismisses it and then opens the application.
void handleTap(objc::Original<void(BannerController*, NSObject*)> original, BannerController* self, NSObject* view);

// The action of the banner's pan gesture recognizer.
void panGestureHandler(BannerController* self, UIPanGestureRecognizer* recognizer);

// Moves the banner to its position at rest plus the offset.
void moveBanner(BannerController* self, CGFloat offset, BrimContainer* view, bool animated,
                objc::Block<void(bool)>* completion);
void moveBannerWithDuration(BannerController* self, CGFloat offset, BrimContainer* view, bool animated, double duration,
                            objc::Block<void(bool)>* completion);

// Adds a quarter of the distance to the banner's height, and clamps the result to the range from the height at rest to
// the fully expanded height. At the upper limit, the banner must stay; at the lower limit, it can be dismissed
// automatically.
void expandBanner(BannerController* self, CGFloat distance, BrimContainer* view, bool animated,
                  objc::Block<void(bool)>* completion);
