// Hooks of the system's ways to dismiss a banner: home button, grabber and lock screen. Main thread.
#pragma once

#include "objc/hook.hpp"
#include "platform/ui_press.hpp"

// The release of the home button dismisses a banner that must stay. Returns the original's result.
bool handlePhysicalButton(objc::Original<bool(NSObject*, UIPressesEvent*)> original, NSObject* self,
                          UIPressesEvent* event);

// The system's grabber dismisses a banner that must stay, and nothing else. Otherwise calls the original.
bool grabberDismiss(objc::Original<bool(NSObject*, NSInteger, bool)> original, NSObject* self, NSInteger style,
                    bool animated);

// The lock screen dismisses all banners before it appears.
void activateLockScreen(
    objc::Original<void(NSObject*, bool, NSObject*, bool, bool, bool, bool, objc::Block<void()>*)> original,
    NSObject* self, bool animated, NSObject* animationProvider, bool automatically, bool inScreenOffMode,
    bool dimInAnimation, bool dismissNotificationCenter, objc::Block<void()>* completion);
