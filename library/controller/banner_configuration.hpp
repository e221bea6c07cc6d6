// Configures a new banner with the settings and with the contents of its notification. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "library/controller/notification_text.hpp"

// Call this function before the banner is added to a superview.
void configureBanner(BrimContainer* banner, BannerController* controller, BrimColors* colors, const BannerTexts& texts);
