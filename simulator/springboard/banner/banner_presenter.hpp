// Presents and dismisses banners, and releases the controllers of dismissed banners.
//
// Banners are numbered from 1 in the order of their presentation. Main thread.
#pragma once

#include <cstddef>
#include <functional>

#include "platform/nc_notification_view_controller.hpp"
#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "simulator/springboard/services/notification_list.hpp"

namespace springboard {

// Presents the controller's view as a banner and dismisses all other banners. Retains the controller until one second
// after the dismissal of the banner. Returns the number of the banner.
std::size_t presentBanner(NCNotificationShortLookViewController* controller);

// Dismisses the controller's banner as the platform does. `transition` is a value of Transition. The completion runs on
// the main queue and can be null. If the banner is not on the screen, this function does nothing and never calls the
// completion. The same applies if the banner is already being dismissed and `transition` is not Transition::None.
void dismissBanner(NCNotificationShortLookViewController* controller, NSInteger transition,
                   objc::Block<void(bool)>* completion);

// Asks the controllers of all banners on the screen to dismiss their banners.
void dismissAllBanners();
// Asks the controllers of the banners that show this notification to dismiss their banners.
void dismissBannersOf(const NotificationKey& key);

// Returns the number of the controller's banner, or 0 if the controller has never been presented.
std::size_t numberOfBanner(const NCNotificationViewController* controller);

// Returns the number of banners that have been presented since the process started.
std::size_t bannerCount();
// Returns the controller of the banner with this number. Returns null if there is no such banner yet, or if its
// controller has been released.
objc::Ref<NCNotificationShortLookViewController> bannerController(std::size_t number);
bool isBannerOnScreen(std::size_t number);
// Returns whether the banner is on the screen and its dismissal has begun.
bool isBannerBeingDismissed(std::size_t number);
bool isAnyBannerOnScreen();

// Adds a function that is called before the controller of a dismissed banner is released.
void observeBannerReleases(std::function<void(std::size_t number)> observer);

}  // namespace springboard
