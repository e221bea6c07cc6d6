// Shows notifications as banners: slides them in above everything else, and lets go of those that were dismissed.
//
// Every banner that comes on screen gets a number, from 1 on. Main thread.
#pragma once

#include <cstddef>
#include <functional>

#include "platform/nc_notification_view_controller.hpp"
#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "simulator/springboard/services/notification_list.hpp"

namespace springboard {

// Shows the controller's view as the newest banner; the one before it is told to go. Answers its number.
std::size_t presentBanner(NCNotificationShortLookViewController* controller);

// The platform's dismissal. The completion runs on the main queue. A controller that is not on screen is left alone,
// and its completion never runs.
void dismissBanner(NCNotificationShortLookViewController* controller, NSInteger transition,
                   objc::Block<void(bool)>* completion);

// Tells all banners on screen to go.
void dismissAllBanners();
// Those that show this notification.
void dismissBannersOf(const NotificationKey& key);

// 0 for a controller that was never on screen.
std::size_t numberOfBanner(const NCNotificationViewController* controller);

// How many there have been.
std::size_t bannerCount();
// Null for a number not given yet, and for a banner that was dismissed and let go.
objc::Ref<NCNotificationShortLookViewController> bannerController(std::size_t number);
bool isBannerOnScreen(std::size_t number);
// Still on screen, on its way out.
bool isBannerLeaving(std::size_t number);
bool isAnyBannerOnScreen();

// Called before the presenter lets go of a dismissed banner.
void observeBannerEnds(std::function<void(std::size_t number)> observer);

}  // namespace springboard
