// The home screen's side of the bridge to the Messages app. It requests that the app send replies and read receipts. If
// the controller has no notification request, these functions do nothing. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// Launches the app in the background, posts the reply, confirms it with a haptic and dismisses the banner.
void sendMessageReply(BannerController* self, BrimContainer* view, NSString* text);
// Launches the app in the background and posts the request to mark the conversation as read.
void markMessagesAsRead(BannerController* self);
