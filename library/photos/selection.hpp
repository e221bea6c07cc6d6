// Which application's sender photo a banner shows.
#pragma once

#include "library/controller/banner_controller.hpp"

// Asks the provider of the notification's application to find the picture. Without one, or with the user's settings
// against it, the banner keeps the application's icon.
void updateProfilePicture(BannerController* self, NSString* header, NSString* body, BrimContainer* view);
