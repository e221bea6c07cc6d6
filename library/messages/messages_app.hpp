// The Messages app's side of the bridge: sends the replies and read receipts that the home screen requests. Main
// thread.
#pragma once

#include "objc/hook.hpp"
#include "platform/messages_app.hpp"
#include "platform/ns_notification_center.hpp"

// The controller of the app's conversation list, with the property that the library adds to it.
class ConversationListController : public objc::Interface<"CKConversationListController", UIViewController> {
 public:
  // The banner identifier of the last reply request. It is used to detect a request that is delivered twice, which must
  // be executed only once. nil before the first request.
  NSString* brimIdentifier() const { return objc::send<NSString*, "brimIdentifier">(this); }
  void setBrimIdentifier(NSString* identifier) { objc::send<void, "setBrimIdentifier:">(this, identifier); }
};

// Hooks. The controller observes the requests from its viewDidLoad to its dealloc.
void conversationListViewDidLoad(objc::Original<void(ConversationListController*)> original,
                                 ConversationListController* self);
void conversationListDealloc(objc::Original<void(ConversationListController*)> original,
                             ConversationListController* self);

// Executes a request to send a reply. Depending on the setting messagesAutoReadMode, also sends a read receipt.
void receivedMessageContacts(ConversationListController* self, NSNotification* notification);
// Executes a request to mark a conversation as read, if the setting messagesAutoReadMode is WhenExpanded.
void markAsRead(ConversationListController* self, NSNotification* notification);
