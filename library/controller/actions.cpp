#include "library/controller/actions.hpp"

#include "library/applications/supported_applications.hpp"
#include "library/controller/haptic.hpp"
#include "platform/dispatch.hpp"
#include "platform/ui_window.hpp"

namespace {

NSString* clockIdentifier() { return "com.apple.mobiletimer"_ns; }
NSString* snoozeIdentifier() { return "MTAlarmSnoozeAction"_ns; }
NSString* typedTextKey() { return "UIUserNotificationActionResponseTypedTextKey"_ns; }

void execute(NotificationController* self, NCNotificationAction* action, NSDictionary* parameters) {
  self->askDelegateToExecuteAction(action, parameters, false);
}

void execute(NotificationController* self, NCNotificationAction* action) {
  execute(self, action, NSDictionary::dictionary());
}

// Returns true if the platform has no method to find it out.
bool canPresent(NCNotificationRequest* request) {
  using Container = NCNotificationContentContainerViewController;
  static const bool isKnown = objc::hasMethod<"initWithNotificationRequest:">(Container::classObject());
  return !isKnown || Container::withRequest(request) != nullptr;
}

// Returns the actions that the application adds, in groups. Returns nil if the platform cannot present the request.
NSDictionary* applicationActions(BannerController* self) {
  NCNotificationRequest* request = self->notificationRequest();
  if (request == nullptr) return nullptr;
  return canPresent(request) ? request->supplementaryActions() : nullptr;
}

// Returns nil if the action has no identifier.
NSString* identifierOf(NSObject* action) {
  if (!respondsTo<"identifier">(action)) return nullptr;
  return static_cast<NCNotificationAction*>(action)->identifier();
}

// Calls `find` for each group, in the dictionary's order, until `find` returns an action. Returns this action, or nil.
template <class FindInGroup>
NCNotificationAction* firstActionInGroups(NSDictionary* groups, const FindInGroup& find) {
  NSArray* keys = groups->allKeys();
  for (NSUInteger index = 0; index < keys->count(); ++index) {
    auto* group = static_cast<NSArray*>(groups->objectForKey(keys->objectAtIndex(index)));
    if (group == nullptr || group->count() == 0) continue;
    if (NCNotificationAction* found = find(group)) return found;
  }
  return nullptr;
}

// Returns the snooze action of the group, or nil. The platform always puts the snooze action first in its group.
NCNotificationAction* snoozeIn(NSArray* group) {
  NSObject* first = group->objectAtIndex(0);
  NSString* identifier = identifierOf(first);
  const bool snoozes = identifier != nullptr && identifier->contains(snoozeIdentifier());
  return snoozes ? static_cast<NCNotificationAction*>(first) : nullptr;
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

bool isFromApplication(BannerController* self, NSString* application) {
  NSString* section = self->notificationRequest()->sectionIdentifier();
  return section != nullptr && section->isEqualToString(application);
}

// Whether the banner window becomes the key window for a reply. If the platform's method is missing, it is not hooked.
bool canUseKeyboard() {
  return objc::hasMethod<"_canBecomeKeyWindow">(objc::lookUpClass<"SBNotificationBannerWindow">());
}

}  // namespace

NSArray* getAlarmActions(BannerController* self) {
  NCNotificationRequest* request = self->notificationRequest();
  if (request == nullptr || !canPresent(request)) return nullptr;
  NSMutableArray* actions = NSMutableArray::array();
  NCNotificationAction* snooze = firstActionInGroups(request->supplementaryActions(), &snoozeIn);
  if (snooze != nullptr) actions->addObject(snooze);
  if (request->closeAction() != nullptr) actions->addObject(request->closeAction());
  return actions;
}

bool isAlarm(BannerController* self) { return isFromApplication(self, clockIdentifier()); }

NSString* getBundleId(BannerController* self) { return self->notificationRequest()->sectionIdentifier(); }

bool canReply(BannerController* self) {
  if (self->notificationRequest() == nullptr || !canUseKeyboard()) return false;
  if (self->getReplyAction() != nullptr) return true;
  return isFromApplication(self, messagesIdentifier()) &&
         respondsTo<"launchApplicationWithIdentifier:suspended:">(UIApplication::sharedApplication());
}

NCNotificationAction* getReplyAction(BannerController* self) {
  return firstActionInGroups(applicationActions(self), &replyIn);
}

void attemptDelete(BannerController* self, BrimContainer* view) {
  if (NCNotificationAction* clear = self->notificationRequest()->clearAction()) {
    execute(self, clear);
    confirmWithHaptic();
  }
  self->forceDismissNotification(view);
}

void executeClearAction(NotificationController* self) {
  if (NCNotificationAction* clear = self->notificationRequest()->clearAction()) execute(self, clear);
}

void attemptSilence(BannerController* self, BrimContainer*) {
  NCNotificationAction* silence = self->notificationRequest()->silenceAction();
  if (silence == nullptr) return;
  execute(self, silence);
  confirmWithHaptic();
}

void executeOnAlarm(BannerController* self, BrimContainer* view, NSUInteger index) {
  if (self->notificationRequest() == nullptr) return;
  NSArray* actions = self->getAlarmActions();
  if (index < actions->count()) execute(self, static_cast<NCNotificationAction*>(actions->objectAtIndex(index)));
  confirmWithHaptic();
  self->forceDismissNotification(view != nullptr ? view : self->brimView());
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
