// What a banner's controller and its library banner say of themselves, by messages: nothing here knows the library.
#pragma once

#include <cstddef>
#include <nlohmann/json_fwd.hpp>

#include "platform/nc_notification_view_controller.hpp"

namespace runner {

// After libraries have been mapped in: keeps the last state of banners that are let go, and records the pictures that
// banners are given. Once.
void observeBanners();

// The controller's state as a script reads it, that of the moment it was let go where it is gone.
nlohmann::ordered_json stateOfBanner(std::size_t number);

// The view that the user takes for the banner: the library's where there is one, else the platform's content; nil where
// neither is in the notification view.
UIView* visibleBanner(const NCNotificationShortLookViewController* controller);

}  // namespace runner
