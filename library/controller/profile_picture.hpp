// The sender's photo in a banner. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// Starts the photo provider of the notification's application. If there is no provider, or the settings disable it, the
// banner continues to show the application's icon. The header and the body can be nil.
void updateProfilePicture(BannerController* self, NSString* header, NSString* body, BrimContainer* view);
