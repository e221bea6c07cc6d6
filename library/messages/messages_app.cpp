#include "library/messages/bridge.hpp"
#include "library/messages/names.hpp"
#include "library/startup/settings.hpp"
#include "platform/ns_distributed_notification_center.hpp"

namespace {

// What the platform's own outgoing messages carry.
constexpr NSUInteger outgoingFlags = 100005;

// The first chat of the list whose identifier contains the given one; null where none does.
IMChat* chatMatching(NSString* identifier) {
  if (identifier == nullptr) return nullptr;
  NSArray* conversations = CKConversationList::sharedConversationList()->conversations();
  for (NSUInteger index = 0; index < conversations->count(); ++index) {
    IMChat* chat = static_cast<CKConversation*>(conversations->objectAtIndex(index))->chat();
    if (chat->guid()->contains(identifier)) return chat;
  }
  return nullptr;
}

NSString* textAt(NSNotification* notification, NSString* key) {
  return objc::as<NSString>(notification->userInfo()->objectForKey(key));
}

}  // namespace

void conversationListViewDidLoad(objc::Original<void(ConversationListController*)> original,
                                 ConversationListController* self) {
  NSNotificationCenter* center = NSDistributedNotificationCenter::defaultCenter();
  center->addObserver(self, objc::selector<"receivedMessageContacts:">(), bridge::replyName());
  center->addObserver(self, objc::selector<"markAsRead:">(), bridge::readName());
  original(self);
}

// The registration for replies stays, as the list controller lives as long as its app.
void conversationListDealloc(objc::Original<void(ConversationListController*)> original,
                             ConversationListController* self) {
  NSDistributedNotificationCenter::defaultCenter()->removeObserver(self, bridge::readName());
  original(self);
}

void receivedMessageContacts(ConversationListController* self, NSNotification* notification) {
  NSString* request = textAt(notification, bridge::brimIdentifierKey());
  NSString* handled = self->brimIdentifier();
  if (handled != nullptr && request != nullptr && handled->isEqualToString(request)) return;
  self->setBrimIdentifier(request);
  IMChat* chat = chatMatching(textAt(notification, bridge::identifierKey()));
  NSString* body = textAt(notification, bridge::bodyKey());
  if (chat == nullptr || body == nullptr) return;
  const auto text = NSAttributedString::withString(body);
  IMChatRegistry* registry = IMChatRegistry::sharedInstance();
  registry->send(chat, IMMessage::instantMessage(text, outgoingFlags));
  if (settings::messagesAutoReadMode == bridge::readAfterReply) registry->sendReadReceiptForAllMessages(chat);
}

void markAsRead(ConversationListController*, NSNotification* notification) {
  IMChat* chat = chatMatching(textAt(notification, bridge::identifierKey()));
  if (chat == nullptr || settings::messagesAutoReadMode != bridge::readWhenExpanded) return;
  IMChatRegistry::sharedInstance()->sendReadReceiptForAllMessages(chat);
}
