// The view controllers of notifications: the short look of banners and the content container. Main thread.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/nc_notification_view_controller.hpp"
#include "simulator/springboard/services/notification_request.hpp"

struct NotificationViewControllerState {
  objc::Ref<NCNotificationRequest> request;
  std::size_t bannerNumber = 0;  // 0 if the controller has never been presented as a banner
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

// The platform's transitions for dismissing a banner. Any other number has the effect of SlideOut.
enum class Transition : NSInteger { None = 0, SlideOut = 1 };

// Creates a controller, which retains the request. The request must not be nil.
objc::Ref<NCNotificationShortLookViewController> makeShortLookController(NCNotificationRequest* request);

void defineNotificationViewControllers();

}  // namespace springboard
