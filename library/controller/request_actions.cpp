#include "library/controller/request_actions.hpp"

void execute(NotificationController* self, NCNotificationAction* action, NSDictionary* parameters) {
  self->askDelegateToExecuteAction(action, parameters, false);
}

void execute(NotificationController* self, NCNotificationAction* action) {
  execute(self, action, NSDictionary::dictionary());
}

bool canPresent(NCNotificationRequest* request) {
  using Container = NCNotificationContentContainerViewController;
  static const bool isKnown = objc::hasMethod<"initWithNotificationRequest:">(Container::classObject());
  return !isKnown || Container::withRequest(request) != nullptr;
}

NSString* identifierOf(NSObject* action) {
  if (!respondsTo<"identifier">(action)) return nullptr;
  return static_cast<NCNotificationAction*>(action)->identifier();
}

bool isFromApplication(BannerController* self, NSString* application) {
  NSString* section = self->notificationRequest()->sectionIdentifier();
  return section != nullptr && section->isEqualToString(application);
}
