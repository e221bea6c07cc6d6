// Which application's sender photo a banner shows.
#pragma once

#include "library/controller/banner_controller.hpp"

// Without a provider for the application the banner keeps the application's icon.
void updateProfilePicture(BannerController* self, NSString* header, NSString* body, BrimContainer* view);
