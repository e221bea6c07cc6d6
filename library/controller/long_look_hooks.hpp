// Hooks that prevent the platform from presenting its long look for a banner. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

// Returns whether the controller's view is in the banner window.
bool isPartOfBanner(NotificationController* self);

// Hooks. In the banner window they do nothing, because banners have no long look. Elsewhere, they call the original
// implementation.
void presentLongLookForScroll(objc::Original<void(BannerController*, bool, objc::Block<void(bool)>*)> original,
                              BannerController* self, bool animated, objc::Block<void(bool)>* completion);
void presentLongLookViaClick(objc::Original<void(BannerController*, NSObject*)> original, BannerController* self,
                             NSObject* interaction);
void presentLongLook(objc::Original<void(NotificationController*, bool, NSInteger, objc::Block<void(bool)>*)> original,
                     NotificationController* self, bool animated, NSInteger trigger,
                     objc::Block<void(bool)>* completion);
