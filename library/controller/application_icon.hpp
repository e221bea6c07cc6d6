// The icon of a notification's application. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// Returns the application's own icon. If the platform has no icon or only a placeholder, returns the first icon of the
// content view, or nil if the content view has no icons.
UIImage* applicationIcon(BannerController* controller, NCNotificationShortLookView* content);
