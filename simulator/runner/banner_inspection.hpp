// Reads the state of a banner from its controller and from the library's view, by Objective-C messages only. Main
// thread.
#pragma once

#include <cstddef>
#include <nlohmann/json_fwd.hpp>

#include "platform/nc_notification_view_controller.hpp"

namespace runner {

// Starts to store the last state of banners whose controllers are deallocated, and to record an event for each photo
// that a banner receives. Call it once, after the library was loaded.
void observeBanners();

// The state of a banner for the script's `state` command. If its controller was deallocated, the last state.
nlohmann::ordered_json stateOfBanner(std::size_t number);

// The view that the user sees as the banner: the library's view, or the platform's content view if there is none. Nil
// if neither is in the notification view.
UIView* visibleBanner(const NCNotificationShortLookViewController* controller);

}  // namespace runner
