#include "library/messages/messages_app.hpp"

#include "library/messages/bridge_protocol.hpp"
#include "library/settings/settings.hpp"
#include "platform/ns_distributed_notification_center.hpp"

namespace {

// The flags that the platform's own outgoing messages have.
constexpr NSUInteger outgoingFlags = 100005;

// Returns the first chat of the list whose guid contains the identifier. Returns nil if there is no such chat or the
// identifier is nil.
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

// Removes the observer of read requests only. The observer of replies stays registered, because the controller normally
// exists as long as the app.
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
  IMMessage* message = IMMessage::instantMessage(text, outgoingFlags);
  if (message != nullptr) registry->send(chat, message);
  if (settings::autoReadMode() == settings::AutoReadMode::AfterReply) registry->sendReadReceiptForAllMessages(chat);
}

void markAsRead(ConversationListController*, NSNotification* notification) {
  IMChat* chat = chatMatching(textAt(notification, bridge::identifierKey()));
  if (chat == nullptr || settings::autoReadMode() != settings::AutoReadMode::WhenExpanded) return;
  IMChatRegistry::sharedInstance()->sendReadReceiptForAllMessages(chat);
}
