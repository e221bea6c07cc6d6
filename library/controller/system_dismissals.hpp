// Hooks of the system functions that dismiss banners: home button, grabber and lock screen. Main thread.
#pragma once

#include "objc/hook.hpp"
#include "platform/ui_press.hpp"

// When the home button is released, dismisses a banner that must stay. Calls the original and returns its result.
bool handlePhysicalButton(objc::Original<bool(NSObject*, UIPressesEvent*)> original, NSObject* self,
                          UIPressesEvent* event);

// If a banner must stay, dismisses this banner and returns true without calling the original. Otherwise, calls the
// original.
bool grabberDismiss(objc::Original<bool(NSObject*, NSInteger, bool)> original, NSObject* self, NSInteger style,
                    bool animated);

// Dismisses all banners before the lock screen appears.
void activateLockScreen(
    objc::Original<void(NSObject*, bool, NSObject*, bool, bool, bool, bool, objc::Block<void()>*)> original,
    NSObject* self, bool animated, NSObject* animationProvider, bool automatically, bool inScreenOffMode,
    bool dimInAnimation, bool dismissNotificationCenter, objc::Block<void()>* completion);
