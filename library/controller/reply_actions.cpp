#include "library/controller/reply_actions.hpp"

#include "library/applications/supported_applications.hpp"
#include "library/controller/request_actions.hpp"
#include "platform/dispatch.hpp"
#include "platform/ui_window.hpp"

namespace {

NSString* typedTextKey() { return "UIUserNotificationActionResponseTypedTextKey"_ns; }

// Returns the actions that the application adds, in groups. Returns nil if the platform cannot present the request.
NSDictionary* applicationActions(BannerController* self) {
  NCNotificationRequest* request = self->notificationRequest();
  if (request == nullptr) return nullptr;
  return canPresent(request) ? request->supplementaryActions() : nullptr;
}

bool isReplyIdentifier(NSString* identifier) {
  if (identifier == nullptr) return false;
  for (NSString* word : {"reply"_ns, "message"_ns, "send"_ns})
    if (identifier->rangeOfString(word, NSStringCompareOptions::CaseInsensitive).length != 0) return true;
  return false;
}

NCNotificationAction* replyIn(NSArray* group) {
  for (NSUInteger index = 0; index < group->count(); ++index)
    if (isReplyIdentifier(identifierOf(group->objectAtIndex(index))))
      return static_cast<NCNotificationAction*>(group->objectAtIndex(index));
  return nullptr;
}

// Returns whether the banner window can become the key window. If the platform's method is missing, it is not hooked.
bool canUseKeyboard() {
  return objc::hasMethod<"_canBecomeKeyWindow">(objc::lookUpClass<"SBNotificationBannerWindow">());
}

}  // namespace

bool canReply(BannerController* self) {
  if (self->notificationRequest() == nullptr || !canUseKeyboard()) return false;
  if (self->getReplyAction() != nullptr) return true;
  return isFromApplication(self, messagesIdentifier()) &&
         respondsTo<"launchApplicationWithIdentifier:suspended:">(UIApplication::sharedApplication());
}

NCNotificationAction* getReplyAction(BannerController* self) {
  return firstActionInGroups(applicationActions(self), &replyIn);
}

void sendReply(BannerController* self, BrimContainer* view, NSString* text) {
  if (text == nullptr || self->notificationRequest() == nullptr) return;
  NCNotificationAction* action = self->getReplyAction();
  if (action == nullptr) {
    const objc::Ref<BannerController> controller = objc::retain(self);
    const objc::Ref<BrimContainer> banner = objc::retain(view);
    const objc::Ref<NSString> reply = objc::retain(text);
    onMainQueue([controller, banner, reply] { controller->sendMessageReply(banner, reply); });
    return;
  }
  NSMutableDictionary* parameters = NSMutableDictionary::dictionaryWithCapacity(1);
  parameters->setObject(text, typedTextKey());
  execute(self, action, parameters);
  self->attemptDelete(view != nullptr ? view : self->brimView());
}
