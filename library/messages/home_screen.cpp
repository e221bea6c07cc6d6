#include "library/controller/haptic.hpp"
#include "library/messages/bridge.hpp"
#include "library/messages/names.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "platform/ui_window.hpp"

namespace {

// A missing value is left out: the other side drops what it cannot match.
void insert(NSMutableDictionary* userInfo, NSString* value, NSString* key) {
  if (value != nullptr) userInfo->setObject(value, key);
}

void wakeMessages() { UIApplication::sharedApplication()->launchApplication(messagesIdentifier(), true); }

}  // namespace

void sendMessageReply(BannerController* self, BrimContainer*, NSString* text) {
  NCNotificationRequest* request = self->notificationRequest();
  if (request == nullptr) return;
  wakeMessages();
  NSMutableDictionary* userInfo = NSMutableDictionary::dictionaryWithCapacity(3);
  insert(userInfo, request->threadIdentifier(), bridge::identifierKey());
  insert(userInfo, text, bridge::bodyKey());
  insert(userInfo, self->brimIdentifier(), bridge::brimIdentifierKey());
  NSDistributedNotificationCenter::defaultCenter()->post(bridge::replyName(), userInfo);
  confirmWithHaptic();
  self->forceDismissNotification(nullptr);
}

void markMessagesAsRead(BannerController* self) {
  NCNotificationRequest* request = self->notificationRequest();
  if (request == nullptr) return;
  wakeMessages();
  NSMutableDictionary* userInfo = NSMutableDictionary::dictionaryWithCapacity(2);
  insert(userInfo, request->threadIdentifier(), bridge::identifierKey());
  insert(userInfo, self->brimIdentifier(), bridge::brimIdentifierKey());
  NSDistributedNotificationCenter::defaultCenter()->post(bridge::readName(), userInfo);
}
