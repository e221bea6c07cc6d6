#include "simulator/springboard/bulletin_server.hpp"

#include <nlohmann/json.hpp>

#include "objc/property_entry.hpp"
#include "simulator/foundation/dispatch.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/host/event_log.hpp"
#include "simulator/springboard/json_objects.hpp"
#include "simulator/springboard/notification_description.hpp"
#include "simulator/springboard/notification_dispatcher.hpp"

dispatch_queue_t __BBServerQueue = nullptr;

namespace springboard {

namespace {

// The destinations that show banners.
constexpr NSUInteger bannerDestinations = 2;

BBAction* actionWithLaunchBundle(Class, NSString* bundleIdentifier, objc::Block<void()>* callblock) {
  auto action = objc::make<BBAction>();
  objc::state(action.get()).launchBundleID = objc::retain(bundleIdentifier);
  objc::state(action.get()).callblock = objc::BlockRef<void()>(callblock);
  return objc::autorelease(action);
}

std::optional<std::string> optionalText(NSString* string) {
  return string == nullptr ? std::nullopt : std::optional(textOf(string));
}

nlohmann::ordered_json describe(const BulletinState& bulletin) {
  const BBAction* action = bulletin.defaultAction;
  return {
      {"title", jsonOf(bulletin.title)},
      {"subtitle", jsonOf(bulletin.subtitle)},
      {"message", jsonOf(bulletin.message)},
      {"sectionID", jsonOf(bulletin.sectionID)},
      {"threadID", jsonOf(bulletin.threadID)},
      {"bulletinID", jsonOf(bulletin.bulletinID)},
      {"recordID", jsonOf(bulletin.recordID)},
      {"publisherBulletinID", jsonOf(bulletin.publisherBulletinID)},
      {"date", jsonOf(bulletin.date)},
      {"publicationDate", jsonOf(bulletin.publicationDate)},
      {"lastInterruptDate", jsonOf(bulletin.lastInterruptDate)},
      {"defaultAction", action == nullptr ? nullptr : jsonOf(objc::state(action).launchBundleID)},
      {"clearable", bulletin.clearable},
      {"showsMessagePreview", bulletin.showsMessagePreview},
  };
}

void presentBulletin(const BulletinState& bulletin) {
  NotificationDescription description;
  description.section = textOf(bulletin.sectionID);
  description.identifier = optionalText(bulletin.bulletinID);
  description.thread = optionalText(bulletin.threadID);
  description.title = optionalText(bulletin.title);
  description.subtitle = optionalText(bulletin.subtitle);
  description.message = optionalText(bulletin.message);
  description.hasClearAction = bulletin.clearable;
  NCNotificationDispatcher::shared()->post(makeRequest(description, nullptr));
}

// On the server's queue; banners are shown from the main thread.
void publish(BBServer*, BBBulletin* bulletin, NSUInteger destinations) {
  nlohmann::ordered_json fields = {{"destinations", destinations}};
  fields.update(describe(objc::state(bulletin)));
  host::recordEvent("publish", fields);
  if ((destinations & bannerDestinations) == 0) return;
  foundation::onMainThread([kept = objc::retain(bulletin)] { presentBulletin(objc::state(kept.get())); });
}

// Whoever showed it takes it away. On the server's queue.
void withdraw(BBServer*, NSString* bulletinIdentifier) {
  foundation::onMainThread([identifier = textOf(bulletinIdentifier)] {
    for (const auto& request : NCNotificationDispatcher::shared()->list().all())
      if (keyOf(request).identifier == identifier) NCNotificationDispatcher::shared()->withdraw(request);
  });
}

BBServer* initWithQueue(BBServer* self, dispatch_queue_t queue) {
  self = objc::sendSuper<"BBServer", BBServer*, "init">(self);
  if (self != nullptr) objc::state(self).queue = queue;
  return self;
}

BBServer* initWithParts(BBServer* self, dispatch_queue_t queue, NSObject*, NSObject*, NSObject*, NSObject*, NSObject*,
                        NSObject*, NSObject*, NSObject*) {
  return initWithQueue(self, queue);
}

void defineBulletin() {
  using objc::stored;
  using Bulletin = BBBulletin;
  using State = BulletinState;
  static constexpr objc::MethodEntry action[] = {
      objc::classMethod<"actionWithLaunchBundleID:callblock:", &actionWithLaunchBundle>()};
  static constexpr objc::PropertyEntry actionProperties[] = {
      stored<"launchBundleID", BBAction, &BulletinActionState::launchBundleID>()};
  static constexpr objc::PropertyEntry bulletin[] = {
      stored<"title", Bulletin, &State::title>(),
      stored<"subtitle", Bulletin, &State::subtitle>(),
      stored<"message", Bulletin, &State::message>(),
      stored<"sectionID", Bulletin, &State::sectionID>(),
      stored<"threadID", Bulletin, &State::threadID>(),
      stored<"bulletinID", Bulletin, &State::bulletinID>(),
      stored<"recordID", Bulletin, &State::recordID>(),
      stored<"publisherBulletinID", Bulletin, &State::publisherBulletinID>(),
      stored<"date", Bulletin, &State::date>(),
      stored<"publicationDate", Bulletin, &State::publicationDate>(),
      stored<"lastInterruptDate", Bulletin, &State::lastInterruptDate>(),
      stored<"defaultAction", Bulletin, &State::defaultAction>(),
      stored<"clearable", Bulletin, &State::clearable>(),
      stored<"showsMessagePreview", Bulletin, &State::showsMessagePreview>(),
  };
  objc::defineClassWithState<BBAction>(action);
  objc::addProperties(BBAction::classObject(), actionProperties);
  objc::defineClassWithState<BBBulletin>({});
  objc::addProperties(BBBulletin::classObject(), bulletin);
}

}  // namespace

void defineBulletinServer() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"initWithQueue:", &initWithQueue>(),
      objc::method<"initWithQueue:dataProviderManager:syncService:dismissalSyncCache:observerListener:"
                   "utilitiesListener:conduitListener:systemStateListener:settingsListener:",
                   &initWithParts>(),
      objc::method<"publishBulletin:destinations:", &publish>(),
      objc::method<"withdrawBulletinID:", &withdraw>(),
  };
  defineBulletin();
  objc::defineClassWithState<BBServer>(methods);
}

void startBulletinServer() {
  __BBServerQueue = dispatch_queue_create("com.apple.bulletinboard.server", nullptr);
  NSObject* const none = nullptr;
  // Never released: it serves as long as the process lives.
  objc::send<BBServer*,
             "initWithQueue:dataProviderManager:syncService:dismissalSyncCache:observerListener:"
             "utilitiesListener:conduitListener:systemStateListener:settingsListener:">(
      objc::allocate<BBServer>(), __BBServerQueue, none, none, none, none, none, none, none, none);
}

}  // namespace springboard
