#include "simulator/springboard/services/bulletin_server.hpp"

#include <nlohmann/json.hpp>

#include "objc/property_entry.hpp"
#include "simulator/base/event_log.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/dispatch_queues.hpp"
#include "simulator/foundation/ignored_leaks.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/springboard/services/notification_description.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"

dispatch_queue_t __BBServerQueue = nullptr;

namespace springboard {

namespace {

// The bit of the destination mask that requests a banner.
constexpr NSUInteger bannerDestination = 2;

BBAction* actionWithLaunchBundle(Class, NSString* bundleIdentifier, objc::Block<void()>* callblock) {
  auto action = objc::make<BBAction>();
  objc::state(action.get()).launchBundleID = objc::retain(bundleIdentifier);
  objc::state(action.get()).callblock = objc::BlockRef<void()>(callblock);
  return objc::autorelease(action);
}

std::optional<std::string> optionalText(NSString* string) {
  return string == nullptr ? std::nullopt : std::optional(base::textOf(string));
}

nlohmann::ordered_json describe(const BulletinState& bulletin) {
  const BBAction* action = bulletin.defaultAction;
  return {
      {"title", base::jsonOf(bulletin.title)},
      {"subtitle", base::jsonOf(bulletin.subtitle)},
      {"message", base::jsonOf(bulletin.message)},
      {"sectionID", base::jsonOf(bulletin.sectionID)},
      {"threadID", base::jsonOf(bulletin.threadID)},
      {"bulletinID", base::jsonOf(bulletin.bulletinID)},
      {"recordID", base::jsonOf(bulletin.recordID)},
      {"publisherBulletinID", base::jsonOf(bulletin.publisherBulletinID)},
      {"date", base::jsonOf(bulletin.date)},
      {"publicationDate", base::jsonOf(bulletin.publicationDate)},
      {"lastInterruptDate", base::jsonOf(bulletin.lastInterruptDate)},
      {"defaultAction", action == nullptr ? nullptr : base::jsonOf(objc::state(action).launchBundleID)},
      {"clearable", bulletin.clearable},
      {"showsMessagePreview", bulletin.showsMessagePreview},
  };
}

void presentBulletin(const BulletinState& bulletin) {
  NotificationDescription description;
  description.section = base::textOf(bulletin.sectionID);
  description.identifier = optionalText(bulletin.bulletinID);
  description.thread = optionalText(bulletin.threadID);
  description.title = optionalText(bulletin.title);
  description.subtitle = optionalText(bulletin.subtitle);
  description.message = optionalText(bulletin.message);
  description.hasClearAction = bulletin.clearable;
  NCNotificationDispatcher::shared()->post(makeRequest(description, nullptr));
}

// Publishes a bulletin. Runs on the server's queue and schedules the presentation of the banner on the main thread.
void publish(BBServer*, BBBulletin* bulletin, NSUInteger destinations) {
  nlohmann::ordered_json fields = {{"destinations", destinations}};
  fields.update(describe(objc::state(bulletin)));
  base::recordEvent("publish", fields);
  if ((destinations & bannerDestination) == 0) return;
  foundation::onMainThread([retained = objc::retain(bulletin)] { presentBulletin(objc::state(retained.get())); });
}

// Withdraws every notification with this identifier. Runs on the server's queue and schedules the withdrawal on the
// main thread.
void withdraw(BBServer*, NSString* bulletinIdentifier) {
  foundation::onMainThread([identifier = base::textOf(bulletinIdentifier)] {
    for (const auto& request : NCNotificationDispatcher::shared()->list().all())
      if (keyOf(request).identifier == identifier) NCNotificationDispatcher::shared()->withdraw(request);
  });
}

BBServer* initWithQueue(BBServer* self, dispatch_queue_t queue) {
  self = objc::sendSuper<"BBServer", BBServer*, "init">(self);
  if (self != nullptr) objc::state(self).queue = queue;
  return self;
}

BBServer* initWithServices(BBServer* self, dispatch_queue_t queue, NSObject*, NSObject*, NSObject*, NSObject*,
                           NSObject*, NSObject*, NSObject*, NSObject*) {
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
                   &initWithServices>(),
      objc::method<"publishBulletin:destinations:", &publish>(),
      objc::method<"withdrawBulletinID:", &withdraw>(),
  };
  defineBulletin();
  objc::defineClassWithState<BBServer>(methods);
}

void startBulletinServer() {
  __BBServerQueue = dispatch_queue_create("com.apple.bulletinboard.server", nullptr);
  NSObject* const none = nullptr;
  // The server is never released, because it exists until the process exits.
  const foundation::IgnoredLeaks ignored;
  objc::send<BBServer*,
             "initWithQueue:dataProviderManager:syncService:dismissalSyncCache:observerListener:"
             "utilitiesListener:conduitListener:systemStateListener:settingsListener:">(
      objc::allocate<BBServer>(), __BBServerQueue, none, none, none, none, none, none, none, none);
}

}  // namespace springboard
