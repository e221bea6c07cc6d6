// The command channel: notifications that reach the controllers of all banners of the process. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"
#include "platform/ns_notification_center.hpp"

enum class Command { Dismiss, DismissWithoutAnimation };

// Each of these returns after every controller has executed the command.
void post(Command command);
// A newer banner with this identifier is attached; the other banners are dismissed.
void postReplacement(NSString* identifier);
// The banner whose original header is equal appends the body, if its notification can be answered.
void postUpdate(NSString* header, NSString* body);

// Hooks. A controller observes the channel from its viewDidLoad to its dealloc.
void bannerControllerViewDidLoad(objc::Original<void(BannerController*)> original, BannerController* self);
void bannerControllerDealloc(objc::Original<void(BannerController*)> original, BannerController* self);
// Ignores unknown commands, and every command before the controller has a brimIdentifier.
void receivedBrimNotification(BannerController* self, NSNotification* notification);
