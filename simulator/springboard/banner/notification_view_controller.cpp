#include "simulator/springboard/banner/notification_view_controller.hpp"

#include <nlohmann/json.hpp>

#include "simulator/base/event_log.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/banner/banner_gestures.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"
#include "simulator/springboard/banner/long_look_presentation.hpp"
#include "simulator/springboard/banner/notification_view.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"

namespace springboard {

namespace {

using Controller = NCNotificationViewController;
using ShortLookController = NCNotificationShortLookViewController;
using ContentContainer = NCNotificationContentContainerViewController;

void recordControllerEvent(const char* event, const Controller* controller) {
  base::recordEvent(event, {{"controller", numberOfBanner(controller)}});
}

// Methods of NCNotificationViewController:

Controller* initWithRequest(Controller* self, NCNotificationRequest* request) {
  self = objc::sendSuper<"NCNotificationViewController", Controller*, "init">(self);
  if (self != nullptr) objc::state(self).request = objc::retain(request);
  return self;
}

NCNotificationRequest* notificationRequest(Controller* self) { return objc::state(self).request; }

void executeAction(Controller* self, NCNotificationAction* action, NSDictionary* parameters, bool animated) {
  base::recordEvent("action", {{"identifier", base::jsonOf(action->identifier())},
                               {"parameters", base::jsonOf(parameters)},
                               {"animated", animated}});
  NCNotificationDispatcher::shared()->execute(action, objc::state(self).request, parameters);
}

// Opens the long look of a short look. For any other controller, the completion receives false.
void openLongLook(Controller* self, bool animated, objc::Block<void(bool)>* completion) {
  recordControllerEvent("longlook", self);
  auto* shortLook = objc::as<ShortLookController>(self);
  if (shortLook == nullptr) {
    if (completion != nullptr) (*completion)(false);
    return;
  }
  longLookPresentation().present(shortLook, animated ? LongLookChange::Animated : LongLookChange::Immediate,
                                 completion);
}

void presentLongLookByTrigger(Controller* self, bool animated, NSInteger, objc::Block<void(bool)>* completion) {
  openLongLook(self, animated, completion);
}

// A presented short look becomes a new banner, which replaces the banner of this controller.
void presentController(Controller* self, UIViewController* presented, bool, objc::Block<void()>* completion) {
  recordControllerEvent("present", self);
  if (auto* banner = objc::as<ShortLookController>(presented)) presentBanner(banner);
  if (completion != nullptr) (*completion)();
}

// Methods of NCNotificationShortLookViewController:

void loadView(ShortLookController* self) {
  const auto content = makeShortLookView(self->notificationRequest());
  const auto view = makeNotificationView(content);
  objc::send<void, "setView:">(self, view.get());
}

void viewDidLoad(ShortLookController* self) {
  objc::sendSuper<"NCNotificationShortLookViewController", void, "viewDidLoad">(self);
}

void traitCollectionDidChange(ShortLookController* self, UITraitCollection* previous) {
  objc::sendSuper<"NCNotificationShortLookViewController", void, "traitCollectionDidChange:">(self, previous);
  recolorShortLookView(contentViewOf(self->view()));
}

void handleTap(ShortLookController* self, NSObject*) {
  // Retains the controller, because the action can remove the list cell that owns it.
  const auto retained = objc::retain(self);
  self->askDelegateToExecuteAction(objc::state(objc::state<Controller>(self).request.get()).defaultAction,
                                   NSDictionary::dictionary(), true);
  self->dismissViewController(NSInteger(Transition::SlideOut), nullptr);
}

void dismiss(ShortLookController* self, NSInteger transition, objc::Block<void(bool)>* completion) {
  dismissBanner(self, transition, completion);
}

void presentLongLookForScroll(ShortLookController* self, bool animated, objc::Block<void(bool)>* completion) {
  openLongLook(self, animated, completion);
}

void presentLongLookByClick(ShortLookController* self, NSObject*) { openLongLook(self, true, nullptr); }

// Methods of NCNotificationContentContainerViewController:

ContentContainer* initContainerWithRequest(ContentContainer* self, NCNotificationRequest* request) {
  if (request == nullptr) {
    objc::releaseObject(self);
    return nullptr;
  }
  self = objc::sendSuper<"NCNotificationContentContainerViewController", ContentContainer*, "init">(self);
  if (self != nullptr) objc::state(self).request = objc::retain(request);
  return self;
}

bool containerAcceptsTouches(ContentContainer*) { return false; }

bool performAction(ContentContainer*, NCNotificationAction* action, NCNotificationRequest*, NSDictionary*) {
  return action != nullptr;
}

}  // namespace

objc::Ref<ShortLookController> makeShortLookController(NCNotificationRequest* request) {
  return objc::adopt(
      objc::send<ShortLookController*, "initWithNotificationRequest:">(objc::allocate<ShortLookController>(), request));
}

void defineNotificationViewControllers() {
  static constexpr objc::MethodEntry controller[] = {
      objc::method<"initWithNotificationRequest:", &initWithRequest>(),
      objc::method<"notificationRequest", &notificationRequest>(),
      objc::method<"_askDelegateToExecuteAction:withParameters:animated:", &executeAction>(),
      objc::method<"presentLongLookAnimated:trigger:completion:", &presentLongLookByTrigger>(),
      objc::method<"presentViewController:animated:completion:", &presentController>(),
  };
  static constexpr objc::MethodEntry shortLook[] = {
      objc::method<"loadView", &loadView>(),
      objc::method<"viewDidLoad", &viewDidLoad>(),
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
      objc::method<"_handleTapOnView:", &handleTap>(),
      objc::method<"dismissViewControllerWithTransition:completion:", &dismiss>(),
      objc::method<"_presentLongLookForScrollAnimated:completion:", &presentLongLookForScroll>(),
      objc::method<"_presentLongLookViaClickPresentationInteraction:", &presentLongLookByClick>(),
      objc::method<"_handlePanOnView:", &handlePan>(),
  };
  static constexpr objc::MethodEntry container[] = {
      objc::method<"initWithNotificationRequest:", &initContainerWithRequest>(),
      objc::method<"userInteractionEnabled", &containerAcceptsTouches>(),
      objc::method<"performAction:forNotification:withUserInfo:", &performAction>(),
  };
  objc::defineClassWithState<Controller>(controller);
  objc::defineClass<ShortLookController>(shortLook);
  objc::defineClassWithState<ContentContainer>(container);
}

}  // namespace springboard
