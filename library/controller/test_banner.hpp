// A made-up notification that shows what banners look like with the settings of the moment.
#pragma once

#include "objc/hook.hpp"
#include "platform/bb_server.hpp"
#include "platform/ui_view_controller.hpp"

// The home screen listens for the request that the settings pane posts.
void homeScreenViewDidLoad(objc::Original<void(UIViewController*)> original, UIViewController* self);
void homeScreenDealloc(objc::Original<void(UIViewController*)> original, UIViewController* self);
void receivedBannerTest(UIViewController* self);

// The bulletin server made last is the one to publish with.
BBServer* serverInit(objc::Original<BBServer*(BBServer*, NSObject*)> original, BBServer* self, NSObject* queue);
BBServer* serverLongInit(objc::Original<BBServer*(BBServer*, NSObject*, NSObject*, NSObject*, NSObject*, NSObject*,
                                                  NSObject*, NSObject*, NSObject*, NSObject*)>
                             original,
                         BBServer* self, NSObject* queue, NSObject* dataProviderManager, NSObject* syncService,
                         NSObject* dismissalSyncCache, NSObject* observerListener, NSObject* utilitiesListener,
                         NSObject* conduitListener, NSObject* systemStateListener, NSObject* settingsListener);
void serverDealloc(objc::Original<void(BBServer*)> original, BBServer* self);
