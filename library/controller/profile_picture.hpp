// The sender's photo in a banner. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// Starts the photo provider of the notification's application. Without a provider, or if the settings disable it, the
// banner keeps the application's icon. Header and body can be nil.
void updateProfilePicture(BannerController* self, NSString* header, NSString* body, BrimContainer* view);
