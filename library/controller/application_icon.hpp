// The icon of a notification's application. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// The application's own icon. If the platform has only a placeholder for it, the first icon of the content view. nil if
// that has none.
UIImage* applicationIcon(BannerController* controller, NCNotificationShortLookView* content);
