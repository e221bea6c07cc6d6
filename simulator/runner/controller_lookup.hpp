// Banners by the numbers that scripts give.
#pragma once

#include "simulator/runner/command_handlers.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"

namespace runner {

// A number that was given to a banner. Throws CommandError for any other.
std::size_t bannerNumber(const Json& value);

// The controller of a banner that is there still: on screen, or on its way out of memory. Throws CommandError.
objc::Ref<NCNotificationShortLookViewController> controllerHeld(const Json& value);

// The controller of a banner that is on screen. Throws CommandError.
objc::Ref<NCNotificationShortLookViewController> controllerOnScreen(const Json& value);

// The newest banner on screen that shows something: one that comes while another must stay is empty. Throws
// CommandError where there is none.
objc::Ref<NCNotificationShortLookViewController> newestControllerOnScreen();

}  // namespace runner
