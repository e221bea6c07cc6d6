#include "library/controller/test_banner.hpp"

#include "library/applications/supported_applications.hpp"
#include "library/controller/haptic.hpp"
#include "platform/dispatch.hpp"
#include "platform/dynamic_linking.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "platform/ns_process_info.hpp"

namespace {

constexpr NSUInteger everyDestination = 15;

// The server that was initialized last, retained. nil before the platform creates a server.
BBServer* sharedServer;

NSString* requestName() { return "com.lumetra.brim.receivedbannertest"_ns; }

NSString* uniqueString() { return NSProcessInfo::processInfo()->globallyUniqueString(); }

objc::Ref<BBBulletin> testBulletin() {
  auto bulletin = objc::make<BBBulletin>();
  bulletin->setTitle("Brim"_ns);
  bulletin->setMessage("Test notification"_ns);
  bulletin->setSectionID(messagesIdentifier());
  bulletin->setBulletinID(uniqueString());
  bulletin->setRecordID(uniqueString());
  bulletin->setPublisherBulletinID(uniqueString());
  bulletin->setDate(NSDate::date());
  bulletin->setDefaultAction(BBAction::launching(messagesIdentifier(), nullptr));
  bulletin->setClearable(true);
  bulletin->setShowsMessagePreview(true);
  bulletin->setPublicationDate(NSDate::date());
  bulletin->setLastInterruptDate(NSDate::date());
  return bulletin;
}

// A process that has a bulletin server exports the server's queue as this symbol.
dispatch_queue_t lookUpServerQueue() {
  const auto* const symbol = static_cast<dispatch_queue_t*>(symbolInProcess("__BBServerQueue"));
  const dispatch_queue_t queue = symbol == nullptr ? nullptr : *symbol;
  if (queue != nullptr) dispatch_retain(queue);
  return queue;
}

dispatch_queue_t serverQueue() {
  static const dispatch_queue_t queue = lookUpServerQueue();
  return queue;
}

void publish(BBBulletin* bulletin) {
  if (bulletin == nullptr || !respondsTo<"publishBulletin:destinations:">(sharedServer) || serverQueue() == nullptr)
    return;
  const objc::Ref<BBServer> server = objc::retain(sharedServer);
  const objc::Ref<BBBulletin> published = objc::retain(bulletin);
  // The server must be used on its own queue only.
  dispatch_sync(serverQueue(), objc::block([server, published] { server->publish(published, everyDestination); }));
}

BBServer* storeServer(BBServer* server) {
  objc::retainObject(server);
  objc::releaseObject(sharedServer);
  sharedServer = server;
  return server;
}

}  // namespace

void homeScreenViewDidLoad(objc::Original<void(UIViewController*)> original, UIViewController* self) {
  NSDistributedNotificationCenter::defaultCenter()->addObserver(self, objc::selector<"receivedBannerTest">(),
                                                                requestName());
  original(self);
}

void homeScreenDealloc(objc::Original<void(UIViewController*)> original, UIViewController* self) {
  NSDistributedNotificationCenter::defaultCenter()->removeObserver(self, requestName());
  original(self);
}

void receivedBannerTest(UIViewController*) {
  vibrate();
  publish(testBulletin());
}

BBServer* serverInit(objc::Original<BBServer*(BBServer*, NSObject*)> original, BBServer* self, NSObject* queue) {
  return storeServer(original(self, queue));
}

BBServer* serverLongInit(objc::Original<BBServer*(BBServer*, NSObject*, NSObject*, NSObject*, NSObject*, NSObject*,
                                                  NSObject*, NSObject*, NSObject*, NSObject*)>
                             original,
                         BBServer* self, NSObject* queue, NSObject* dataProviderManager, NSObject* syncService,
                         NSObject* dismissalSyncCache, NSObject* observerListener, NSObject* utilitiesListener,
                         NSObject* conduitListener, NSObject* systemStateListener, NSObject* settingsListener) {
  return storeServer(original(self, queue, dataProviderManager, syncService, dismissalSyncCache, observerListener,
                              utilitiesListener, conduitListener, systemStateListener, settingsListener));
}

void serverDealloc(objc::Original<void(BBServer*)> original, BBServer* self) {
  if (sharedServer == self) sharedServer = nullptr;
  original(self);
}
