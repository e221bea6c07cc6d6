// The Messages app's end of the bridge: sends the replies and read receipts that the home screen requests. Main thread.
#pragma once

#include "objc/hook.hpp"
#include "platform/messages_app.hpp"
#include "platform/ns_notification_center.hpp"

// The app's conversation list, with the property that the library adds.
class ConversationListController : public objc::Interface<"CKConversationListController", UIViewController> {
 public:
  // The identifier of the last reply. A reply that is delivered twice is sent once.
  NSString* brimIdentifier() const { return objc::send<NSString*, "brimIdentifier">(this); }
  void setBrimIdentifier(NSString* identifier) { objc::send<void, "setBrimIdentifier:">(this, identifier); }
};

// Hooks. The list observes the requests from its viewDidLoad to its dealloc.
void conversationListViewDidLoad(objc::Original<void(ConversationListController*)> original,
                                 ConversationListController* self);
void conversationListDealloc(objc::Original<void(ConversationListController*)> original,
                             ConversationListController* self);

// Sends a reply. The interface fixes the name of the message.
void receivedMessageContacts(ConversationListController* self, NSNotification* notification);
void markAsRead(ConversationListController* self, NSNotification* notification);
