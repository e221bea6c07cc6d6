// Replies to a notification. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// Returns whether the notification has a reply action or is from the Messages app. Returns false if the controller has
// no notification request, or if the platform lacks an interface that replies require.
bool canReply(BannerController* self);
// Returns the first action whose identifier indicates a reply, or nil.
NCNotificationAction* getReplyAction(BannerController* self);
// Executes the reply action with the text, and then calls attemptDelete. If there is no reply action, sends the text
// through the Messages app instead. A nil view represents the controller's attached banner.
void sendReply(BannerController* self, BrimContainer* view, NSString* text);
