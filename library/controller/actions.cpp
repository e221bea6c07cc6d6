#include "library/controller/actions.hpp"

#include "library/controller/haptic.hpp"
#include "platform/dispatch.hpp"

namespace {

NSString* clockIdentifier() { return "com.apple.mobiletimer"_ns; }
NSString* snoozeAction() { return "MTAlarmSnoozeAction"_ns; }
NSString* typedTextKey() { return "UIUserNotificationActionResponseTypedTextKey"_ns; }

void handOver(NotificationController* self, NCNotificationAction* action, NSDictionary* parameters) {
  self->askDelegateToExecuteAction(action, parameters, false);
}

void handOver(NotificationController* self, NCNotificationAction* action) {
  handOver(self, action, NSDictionary::dictionary());
}

// The application's own actions, where the platform can show the request at all.
NSDictionary* applicationActions(BannerController* self) {
  NCNotificationRequest* request = self->notificationRequest();
  if (request == nullptr) return nullptr;
  const auto shown = NCNotificationContentContainerViewController::withRequest(request);
  return shown == nullptr ? nullptr : request->supplementaryActions();
}

// The identifier of an action that has one, else null.
NSString* identifierOf(NSObject* action) {
  if (!answers<"identifier">(action)) return nullptr;
  return static_cast<NCNotificationAction*>(action)->identifier();
}

// Goes through the groups of actions in the dictionary's order until the visitor answers an action.
template <class Visit>
NCNotificationAction* firstInGroups(NSDictionary* groups, const Visit& visit) {
  NSArray* keys = groups->allKeys();
  for (NSUInteger index = 0; index < keys->count(); ++index) {
    auto* group = static_cast<NSArray*>(groups->objectForKey(keys->objectAtIndex(index)));
    if (group == nullptr || group->count() == 0) continue;
    if (NCNotificationAction* found = visit(group)) return found;
  }
  return nullptr;
}

// Only the first action of a group can be the one that snoozes.
NCNotificationAction* snoozeIn(NSArray* group) {
  NSObject* first = group->objectAtIndex(0);
  NSString* identifier = identifierOf(first);
  const bool snoozes = identifier != nullptr && identifier->contains(snoozeAction());
  return snoozes ? static_cast<NCNotificationAction*>(first) : nullptr;
}

bool namesAReply(NSString* identifier) {
  if (identifier == nullptr) return false;
  for (NSString* word : {"reply"_ns, "message"_ns, "send"_ns})
    if (identifier->rangeOfString(word, NSStringCompareOptions::CaseInsensitive).length != 0) return true;
  return false;
}

NCNotificationAction* replyIn(NSArray* group) {
  for (NSUInteger index = 0; index < group->count(); ++index)
    if (namesAReply(identifierOf(group->objectAtIndex(index))))
      return static_cast<NCNotificationAction*>(group->objectAtIndex(index));
  return nullptr;
}

bool isFrom(BannerController* self, NSString* application) {
  NSString* section = self->notificationRequest()->sectionIdentifier();
  return section != nullptr && section->isEqualToString(application);
}

}  // namespace

NSArray* getAlarmActions(BannerController* self) {
  NCNotificationRequest* request = self->notificationRequest();
  if (request == nullptr || NCNotificationContentContainerViewController::withRequest(request) == nullptr)
    return nullptr;
  NSMutableArray* actions = NSMutableArray::array();
  NCNotificationAction* snooze = firstInGroups(request->supplementaryActions(), &snoozeIn);
  if (snooze != nullptr) actions->addObject(snooze);
  if (request->closeAction() != nullptr) actions->addObject(request->closeAction());
  return actions;
}

bool isAlarm(BannerController* self) { return isFrom(self, clockIdentifier()); }

NSString* getBundleId(BannerController* self) { return self->notificationRequest()->sectionIdentifier(); }

bool canReply(BannerController* self) {
  if (self->notificationRequest() == nullptr) return false;
  return self->getReplyAction() != nullptr || isFrom(self, messagesIdentifier());
}

NCNotificationAction* getReplyAction(BannerController* self) {
  return firstInGroups(applicationActions(self), &replyIn);
}

void attemptDelete(BannerController* self, BrimContainer* view) {
  if (NCNotificationAction* clear = self->notificationRequest()->clearAction()) {
    handOver(self, clear);
    confirmWithHaptic();
  }
  self->forceDismissNotification(view);
}

void attemptDeleteQuietly(NotificationController* self) {
  if (NCNotificationAction* clear = self->notificationRequest()->clearAction()) handOver(self, clear);
}

void attemptSilence(BannerController* self, BrimContainer*) {
  NCNotificationAction* silence = self->notificationRequest()->silenceAction();
  if (silence == nullptr) return;
  handOver(self, silence);
  confirmWithHaptic();
}

void executeOnAlarm(BannerController* self, BrimContainer* view, NSUInteger index) {
  if (self->notificationRequest() == nullptr) return;
  NSArray* actions = self->getAlarmActions();
  if (index < actions->count()) handOver(self, static_cast<NCNotificationAction*>(actions->objectAtIndex(index)));
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
  handOver(self, action, parameters);
  self->attemptDelete(view != nullptr ? view : self->brimView());
}
