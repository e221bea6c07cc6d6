// Copies the settings and what is known of the notification into a new banner.
#pragma once

#include "library/controller/banner_controller.hpp"

// What a banner says; each text may be nil.
struct BannerTexts {
  objc::Ref<NSString> header;
  objc::Ref<NSString> subHeader;
  objc::Ref<NSString> body;
};

void configureBanner(BrimContainer* banner, BannerController* controller, BrimColors* colours,
                     const BannerTexts& texts);
