// The test banner: a notification that the settings pane requests to show the current settings. Main thread.
#pragma once

#include "objc/hook.hpp"
#include "platform/bb_server.hpp"
#include "platform/ui_view_controller.hpp"

// Hooks. The home screen's view controller observes the request from its viewDidLoad to its dealloc.
void homeScreenViewDidLoad(objc::Original<void(UIViewController*)> original, UIViewController* self);
void homeScreenDealloc(objc::Original<void(UIViewController*)> original, UIViewController* self);
// Vibrates and publishes the notification.
void receivedBannerTest(UIViewController* self);

// Hooks. They store the bulletin server that was initialized last, because this server publishes the test banner.
BBServer* serverInit(objc::Original<BBServer*(BBServer*, NSObject*)> original, BBServer* self, NSObject* queue);
BBServer* serverLongInit(objc::Original<BBServer*(BBServer*, NSObject*, NSObject*, NSObject*, NSObject*, NSObject*,
                                                  NSObject*, NSObject*, NSObject*, NSObject*)>
                             original,
                         BBServer* self, NSObject* queue, NSObject* dataProviderManager, NSObject* syncService,
                         NSObject* dismissalSyncCache, NSObject* observerListener, NSObject* utilitiesListener,
                         NSObject* conduitListener, NSObject* systemStateListener, NSObject* settingsListener);
void serverDealloc(objc::Original<void(BBServer*)> original, BBServer* self);
