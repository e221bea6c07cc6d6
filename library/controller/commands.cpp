#include "library/controller/commands.hpp"

#include "library/controller/dismissal.hpp"
#include "library/controller/notification_updates.hpp"

namespace {

// The names of the notification, its keys and its commands are part of the library's public interface; do not change
// them.
NSString* notificationName() { return "BrimNotification"_ns; }
NSString* commandKey() { return "command"_ns; }
NSString* headerKey() { return "header"_ns; }
NSString* bodyKey() { return "body"_ns; }
NSString* identifierKey() { return "brimIdentifier"_ns; }
NSString* dismissCommand() { return "dismiss"_ns; }
NSString* dismissWithoutAnimationCommand() { return "dismissnoani"_ns; }
NSString* updateCommand() { return "updateReply"_ns; }
NSString* replacementCommand() { return "isExternallyDismissed"_ns; }

NSMutableDictionary* userInfoFor(NSString* command) {
  NSMutableDictionary* userInfo = NSMutableDictionary::dictionaryWithCapacity(3);
  userInfo->setObject(command, commandKey());
  return userInfo;
}

void broadcast(NSDictionary* userInfo) { NSNotificationCenter::defaultCenter()->post(notificationName(), userInfo); }

void handleDismiss(BannerController* self, NSDictionary*) { self->forceDismissNotification(self->brimView()); }

void handleDismissWithoutAnimation(BannerController* self, NSDictionary*) { dismissWithoutAnimation(self); }

void handleUpdate(BannerController* self, NSDictionary* userInfo) {
  auto* header = objc::as<NSString>(userInfo->objectForKey(headerKey()));
  auto* body = objc::as<NSString>(userInfo->objectForKey(bodyKey()));
  if (header != nullptr && body != nullptr) appendUpdate(self, header, body);
}

void handleReplacement(BannerController* self, NSDictionary* userInfo) {
  auto* newerBanner = objc::as<NSString>(userInfo->objectForKey(identifierKey()));
  if (self->brimIdentifier()->isEqualToString(newerBanner)) return;
  // While this banner must stay, a newer notification gets no banner and replaces nothing.
  if (newerBanner != nullptr && isNewestBanner(self)) return;
  dismissReplacedBanner(self);
}

struct CommandHandler {
  NSString* (*command)();
  void (*handle)(BannerController*, NSDictionary*);
};

constexpr CommandHandler handlers[] = {
    {&dismissCommand, &handleDismiss},
    {&dismissWithoutAnimationCommand, &handleDismissWithoutAnimation},
    {&updateCommand, &handleUpdate},
    {&replacementCommand, &handleReplacement},
};

}  // namespace

void post(Command command) {
  broadcast(userInfoFor(command == Command::Dismiss ? dismissCommand() : dismissWithoutAnimationCommand()));
}

void postReplacement(NSString* identifier) {
  NSMutableDictionary* userInfo = userInfoFor(replacementCommand());
  userInfo->setObject(identifier, identifierKey());
  broadcast(userInfo);
}

void postUpdate(NSString* header, NSString* body) {
  NSMutableDictionary* userInfo = userInfoFor(updateCommand());
  userInfo->setObject(header, headerKey());
  userInfo->setObject(body, bodyKey());
  broadcast(userInfo);
}

void bannerControllerViewDidLoad(objc::Original<void(BannerController*)> original, BannerController* self) {
  original(self);
  clearDismissalFlags(self);
  NSNotificationCenter::defaultCenter()->addObserver(self, objc::selector<"receivedBrimNotification:">(),
                                                     notificationName());
}

void bannerControllerDealloc(objc::Original<void(BannerController*)> original, BannerController* self) {
  NSNotificationCenter::defaultCenter()->removeObserver(self, notificationName());
  forgetBanner(self);
  original(self);
}

void receivedBrimNotification(BannerController* self, NSNotification* notification) {
  if (self->brimIdentifier() == nullptr || !notification->name()->isEqualToString(notificationName())) return;
  NSDictionary* userInfo = notification->userInfo();
  auto* command = objc::as<NSString>(userInfo->objectForKey(commandKey()));
  if (command == nullptr) return;
  // The controller is retained, because a dismissal can release the last other reference to it.
  const objc::Ref<BannerController> controller = objc::retain(self);
  for (const CommandHandler& handler : handlers) {
    if (!command->isEqualToString(handler.command())) continue;
    handler.handle(self, userInfo);
    return;
  }
}
