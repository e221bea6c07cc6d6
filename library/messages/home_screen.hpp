// The home screen's end of the bridge to the Messages app: requests replies and read receipts. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// Launches the app in the background, posts the reply, confirms it and dismisses the banner.
void sendMessageReply(BannerController* self, BrimContainer* view, NSString* text);
void markMessagesAsRead(BannerController* self);
