#include "library/messages/home_screen.hpp"

#include "library/applications/supported_applications.hpp"
#include "library/controller/haptic.hpp"
#include "library/messages/bridge_protocol.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "platform/ui_window.hpp"

namespace {

// Omits a nil value. The Messages app ignores a request that it cannot match to a chat.
void insertIfPresent(NSMutableDictionary* userInfo, NSString* value, NSString* key) {
  if (value != nullptr) userInfo->setObject(value, key);
}

void launchMessages() { UIApplication::sharedApplication()->launchApplication(messagesIdentifier(), true); }

}  // namespace

void sendMessageReply(BannerController* self, BrimContainer*, NSString* text) {
  NCNotificationRequest* request = self->notificationRequest();
  if (request == nullptr) return;
  launchMessages();
  NSMutableDictionary* userInfo = NSMutableDictionary::dictionaryWithCapacity(3);
  insertIfPresent(userInfo, request->threadIdentifier(), bridge::identifierKey());
  insertIfPresent(userInfo, text, bridge::bodyKey());
  insertIfPresent(userInfo, self->brimIdentifier(), bridge::brimIdentifierKey());
  NSDistributedNotificationCenter::defaultCenter()->post(bridge::replyName(), userInfo);
  confirmWithHaptic();
  self->forceDismissNotification(nullptr);
}

void markMessagesAsRead(BannerController* self) {
  NCNotificationRequest* request = self->notificationRequest();
  if (request == nullptr) return;
  launchMessages();
  NSMutableDictionary* userInfo = NSMutableDictionary::dictionaryWithCapacity(2);
  insertIfPresent(userInfo, request->threadIdentifier(), bridge::identifierKey());
  insertIfPresent(userInfo, self->brimIdentifier(), bridge::brimIdentifierKey());
  NSDistributedNotificationCenter::defaultCenter()->post(bridge::readName(), userInfo);
}
