// Reads the state of a banner from its controller and from the library's view. Uses Objective-C messages only. Main
// thread.
#pragma once

#include <cstddef>
#include <nlohmann/json_fwd.hpp>

#include "platform/nc_notification_view_controller.hpp"

namespace runner {

// Starts to store the last state of each banner when its controller is deallocated, and to record an event for each
// photo that a banner receives. Call this once, after the library was loaded.
void observeBanners();

// Returns the state of a banner, which is the result of the script's command `state`. If the controller of the banner
// was deallocated, returns its last state.
nlohmann::ordered_json stateOfBanner(std::size_t number);

// Returns the view that the user sees as the banner: the library's view, or the platform's content view if the library
// has none. Returns nil if the notification view contains neither.
UIView* visibleBanner(const NCNotificationShortLookViewController* controller);

}  // namespace runner
