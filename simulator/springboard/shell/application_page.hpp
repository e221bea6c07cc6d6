// The page of an application that has been opened from the home screen: the contents that are registered for the
// application, or its icon and its name over the blurred wallpaper. Main thread.
#pragma once

#include <string>

#include "platform/ui_view.hpp"
#include "simulator/springboard/shell/status_bar.hpp"

namespace springboard {

// Registers the function that creates the contents of an application's page: a view that covers the screen. The
// function is called each time the page opens.
struct PageContents {
  objc::Ref<UIView> (*make)();
  StatusBarVisibility statusBar;
};
void setPageContents(const std::string& bundleIdentifier, const PageContents& contents);

// Opens the page of the application. The page grows from the frame of the application's icon. Does nothing while a page
// is open.
void openApplicationPage(const std::string& bundleIdentifier, CGRect icon);

// Closes the page. Does nothing if no page is open.
void closeApplicationPage();

// Returns whether the open page shows the status bar. Returns Shown if no page is open.
StatusBarVisibility statusBarOfOpenPage();

}  // namespace springboard
