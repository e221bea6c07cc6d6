// Looks up controllers by number. Scripts refer to controllers, each with one banner, by the numbers from 1 on in order
// of presentation. Main thread.
#pragma once

#include "simulator/runner/command_handlers.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"

namespace runner {

// Converts the number of a presented banner. Throws CommandError for any other value.
std::size_t bannerNumber(const Json& value);

// The controller with this number. Throws CommandError if it was deallocated.
objc::Ref<NCNotificationShortLookViewController> liveController(const Json& value);

// The controller with this number. Throws CommandError if its banner is not on screen.
objc::Ref<NCNotificationShortLookViewController> controllerOnScreen(const Json& value);

// The controller of the newest banner on screen that has content. A banner is presented without content if another
// banner could not be replaced. Throws CommandError if there is none.
objc::Ref<NCNotificationShortLookViewController> newestControllerOnScreen();

}  // namespace runner
