// Looks up controllers by number. Each controller has one banner. Scripts refer to controllers by numbers, which begin
// at 1 and follow the order of presentation. Main thread.
#pragma once

#include "simulator/runner/command_handlers.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"

namespace runner {

// Converts a JSON value to the number of a presented banner. Throws CommandError for any other value.
std::size_t bannerNumber(const Json& value);

// Returns the controller with this number. Throws CommandError if the controller was deallocated.
objc::Ref<NCNotificationShortLookViewController> liveController(const Json& value);

// Returns the controller with this number. Throws CommandError if its banner is not on screen.
objc::Ref<NCNotificationShortLookViewController> controllerOnScreen(const Json& value);

// Returns the controller of the newest banner that is on screen and has content. A banner has no content if it was
// presented while another banner could not be replaced. Throws CommandError if there is no such banner.
objc::Ref<NCNotificationShortLookViewController> newestControllerOnScreen();

}  // namespace runner
