// The finger on a banner: drags that dismiss it or pull it open, and the guards that keep the platform's long look
// away.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"
#include "platform/ui_press.hpp"
#include "platform/ui_window.hpp"

void panGestureHandler(BannerController* self, UIPanGestureRecognizer* recognizer);
void moveBanner(BannerController* self, CGFloat offset, BrimContainer* view, bool animated,
                objc::Block<void(bool)>* completion);
void moveBannerFor(BannerController* self, CGFloat offset, BrimContainer* view, bool animated, double duration,
                   objc::Block<void(bool)>* completion);
// Grows the banner by a quarter of the finger's way, between its resting and its full height.
void expandBanner(BannerController* self, CGFloat distance, BrimContainer* view, bool animated,
                  objc::Block<void(bool)>* completion);

// Whether the controller's view is inside the banner window.
bool isPartOfBanner(NotificationController* self);

void presentLongLookForScroll(objc::Original<void(BannerController*, bool, objc::Block<void(bool)>*)> original,
                              BannerController* self, bool animated, objc::Block<void(bool)>* completion);
void presentLongLookViaClick(objc::Original<void(BannerController*, NSObject*)> original, BannerController* self,
                             NSObject* interaction);
void presentLongLook(objc::Original<void(NotificationController*, bool, NSInteger, objc::Block<void(bool)>*)> original,
                     NotificationController* self, bool animated, NSInteger trigger,
                     objc::Block<void(bool)>* completion);
void presentViewController(
    objc::Original<void(NotificationController*, UIViewController*, bool, objc::Block<void()>*)> original,
    NotificationController* self, UIViewController* presented, bool animated, objc::Block<void()>* completion);

// The home button sends a banner that must stay away.
bool handlePhysicalButton(objc::Original<bool(NSObject*, UIPressesEvent*)> original, NSObject* self,
                          UIPressesEvent* event);

// The first status bar window of the process is kept for shared use.
UIWindow* statusBarWindowInit(objc::Original<UIWindow*(UIWindow*, CGRect)> original, UIWindow* self, CGRect frame);
UIWindow* brimSharedWindow(Class self);
