#include "library/controller/commands.hpp"

#include "library/controller/dismissal.hpp"
#include "library/controller/notification_text.hpp"
#include "platform/dispatch.hpp"

namespace {

constexpr std::int64_t replacementDelay = nanosecondsPerSecond / 2;
// The platform's own number for a dismissal that the banner has asked for.
constexpr NSInteger ownTransition = 30;

NSString* notificationName() { return "BrimNotification"_ns; }
NSString* commandKey() { return "command"_ns; }
NSString* headerKey() { return "header"_ns; }
NSString* bodyKey() { return "body"_ns; }
NSString* identifierKey() { return "brimIdentifier"_ns; }
NSString* dismissCommand() { return "dismiss"_ns; }
NSString* dismissWithoutAnimationCommand() { return "dismissnoani"_ns; }
NSString* updateReplyCommand() { return "updateReply"_ns; }
NSString* replacementCommand() { return "isExternallyDismissed"_ns; }

NSMutableDictionary* message(NSString* command) {
  NSMutableDictionary* made = NSMutableDictionary::dictionaryWithCapacity(3);
  made->setObject(command, commandKey());
  return made;
}

void broadcast(NSDictionary* userInfo) { NSNotificationCenter::defaultCenter()->post(notificationName(), userInfo); }

void obeyDismiss(BannerController* self, NSDictionary*) { self->forceDismissNotification(self->brimView()); }

void obeyDismissWithoutAnimation(BannerController* self, NSDictionary*) {
  BrimContainer::setDismissNotification(true);
  if (self->brimView() != nullptr) removeBanner(self);
  if (answers<"dismissViewControllerWithTransition:completion:">(self))
    self->dismissViewController(ownTransition, nullptr);
}

// Only the banner of the same conversation, known by its header, takes the text.
void obeyUpdateReply(BannerController* self, NSDictionary* userInfo) {
  BrimContainer* banner = self->brimView();
  if (banner == nullptr || !banner->canReply() || banner->headerLabel()->text() == nullptr) return;
  auto* header = objc::as<NSString>(userInfo->objectForKey(headerKey()));
  auto* body = objc::as<NSString>(userInfo->objectForKey(bodyKey()));
  if (header == nullptr || body == nullptr || !banner->originalHeader()->isEqualToString(header)) return;
  banner->updateForContinuousNotification(body);
}

void obeyReplacement(BannerController* self, NSDictionary* userInfo) {
  auto* replacing = objc::as<NSString>(userInfo->objectForKey(identifierKey()));
  if (self->brimIdentifier()->isEqualToString(replacing) || self->wasExternallyDismissed()) return;
  self->setWasExternallyDismissed(true);
  const objc::Ref<BannerController> controller = objc::retain(self);
  onMainQueueAfter(replacementDelay, [controller] {
    if (controller->isDismissing() || controller->dismissCalled()) return;
    if (answers<"forceDismissNotificationForView:">(controller))
      controller->forceDismissNotification(controller->brimView());
  });
}

struct Obedience {
  NSString* (*command)();
  void (*obey)(BannerController*, NSDictionary*);
};

constexpr Obedience obediences[] = {
    {&dismissCommand, &obeyDismiss},
    {&dismissWithoutAnimationCommand, &obeyDismissWithoutAnimation},
    {&updateReplyCommand, &obeyUpdateReply},
    {&replacementCommand, &obeyReplacement},
};

}  // namespace

void post(Command command) {
  broadcast(message(command == Command::Dismiss ? dismissCommand() : dismissWithoutAnimationCommand()));
}

void postReplacement(NSString* identifier) {
  NSMutableDictionary* userInfo = message(replacementCommand());
  userInfo->setObject(identifier, identifierKey());
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
  original(self);
}

void receivedBrimNotification(BannerController* self, NSNotification* notification) {
  if (self->brimIdentifier() == nullptr || !notification->name()->isEqualToString(notificationName())) return;
  NSDictionary* userInfo = notification->userInfo();
  auto* command = objc::as<NSString>(userInfo->objectForKey(commandKey()));
  if (command == nullptr) return;
  // The command may take the controller from the screen.
  const objc::Ref<BannerController> controller = objc::retain(self);
  for (const Obedience& obedience : obediences) {
    if (!command->isEqualToString(obedience.command())) continue;
    obedience.obey(self, userInfo);
    return;
  }
}

void attemptUpdateReply(NotificationController* self, NCNotificationViewControllerView* view) {
  NCNotificationShortLookView* content = view->contentView();
  NSString* title = presentText(content->primaryText());
  NSString* header = title != nullptr ? title : content->primarySubtitleText();
  NSString* body = bodyText(content);
  if (header == nullptr || body == nullptr) return;
  NSMutableDictionary* userInfo = message(updateReplyCommand());
  userInfo->setObject(header, headerKey());
  userInfo->setObject(body, bodyKey());
  broadcast(userInfo);
  self->attemptDelete();
}

bool grabberDismiss(objc::Original<bool(NSObject*, NSInteger, bool)> original, NSObject* self, NSInteger style,
                    bool animated) {
  if (BrimContainer::DismissNotification()) return original(self, style, animated);
  post(Command::Dismiss);
  return true;
}

void activateLockScreen(
    objc::Original<void(NSObject*, bool, NSObject*, bool, bool, bool, bool, objc::Block<void()>*)> original,
    NSObject* self, bool animated, NSObject* animationProvider, bool automatically, bool inScreenOffMode,
    bool dimInAnimation, bool dismissNotificationCenter, objc::Block<void()>* completion) {
  post(Command::DismissWithoutAnimation);
  original(self, animated, animationProvider, automatically, inScreenOffMode, dimInAnimation, dismissNotificationCenter,
           completion);
}
