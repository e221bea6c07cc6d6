// The page of an application that has been opened from the home screen: its icon and its name over the blurred
// wallpaper. Main thread.
#pragma once

#include <string>

#include "platform/core_graphics.hpp"

namespace springboard {

// Opens the page of the application. The page grows from the frame of the application's icon. Does nothing while a page
// is open.
void openApplicationPage(const std::string& bundleIdentifier, CGRect icon);

// Closes the page. Does nothing if no page is open.
void closeApplicationPage();

}  // namespace springboard
