// The view controllers of notifications: the banner's short look, and the container that can tell whether a request
// shows.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/nc_notification_view_controller.hpp"
#include "simulator/springboard/services/notification_request.hpp"

struct NotificationViewControllerState {
  objc::Ref<NCNotificationRequest> request;
  std::size_t bannerNumber = 0;  // 0: never on screen
};
template <>
struct objc::StateOf<NCNotificationViewController> {
  using Type = NotificationViewControllerState;
};

struct ContentContainerState {
  objc::Ref<NCNotificationRequest> request;
};
template <>
struct objc::StateOf<NCNotificationContentContainerViewController> {
  using Type = ContentContainerState;
};

namespace springboard {

// How the platform's own dismissals end a banner; any other number slides it out as well.
enum class Transition : NSInteger { None = 0, SlideOut = 1 };

objc::Ref<NCNotificationShortLookViewController> makeShortLookController(NCNotificationRequest* request);

void defineNotificationViewControllers();

}  // namespace springboard
