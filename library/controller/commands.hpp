// The command channel. A command is a notification that all banner controllers in the process receive. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"
#include "platform/ns_notification_center.hpp"

enum class Command { Dismiss, DismissWithoutAnimation };

// Posts a command. This function and the next two return after every controller has executed the command.
void post(Command command);
// Announces that a newer banner with this identifier replaces the others, which are then dismissed.
void postReplacement(NSString* identifier);
// Appends the body to each banner whose original header equals `header` and whose notification can be answered.
void postUpdate(NSString* header, NSString* body);

// Hooks. A controller observes the channel from its viewDidLoad to its dealloc.
void bannerControllerViewDidLoad(objc::Original<void(BannerController*)> original, BannerController* self);
void bannerControllerDealloc(objc::Original<void(BannerController*)> original, BannerController* self);
// Executes a command. Ignores unknown commands, and ignores every command before the controller has a brimIdentifier.
void receivedBrimNotification(BannerController* self, NSNotification* notification);
