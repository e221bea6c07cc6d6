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

// Presents the controller's view as a banner and dismisses all other banners. Retains the controller until the banner
// has been dismissed. Returns the number of the banner.
std::size_t presentBanner(NCNotificationShortLookViewController* controller);

// The platform's dismissal; `transition` is a value of Transition. The completion runs on the main queue and can be
// null. Does nothing, and never calls the completion, if the controller's banner is not on the screen, or if it is
// already being dismissed and `transition` is not Transition::None.
void dismissBanner(NCNotificationShortLookViewController* controller, NSInteger transition,
                   objc::Block<void(bool)>* completion);

// Asks all banners on the screen to dismiss themselves.
void dismissAllBanners();
// Asks the banners that show this notification to dismiss themselves.
void dismissBannersOf(const NotificationKey& key);

// The number of the controller's banner. 0 if the controller has never been presented.
std::size_t numberOfBanner(const NCNotificationViewController* controller);

// The number of banners that have been presented since the start.
std::size_t bannerCount();
// Null if no banner has this number yet or its controller has been released.
objc::Ref<NCNotificationShortLookViewController> bannerController(std::size_t number);
bool isBannerOnScreen(std::size_t number);
// Whether the banner is on the screen and its dismissal has begun.
bool isBannerBeingDismissed(std::size_t number);
bool isAnyBannerOnScreen();

// Sets the function that is called before the controller of a dismissed banner is released. It replaces any previous
// observer.
void observeBannerReleases(std::function<void(std::size_t number)> observer);

}  // namespace springboard
