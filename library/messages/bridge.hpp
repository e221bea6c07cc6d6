// Carries replies and read receipts from a banner in the home screen to the Messages app, which sends them.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"
#include "platform/messages_app.hpp"
#include "platform/ns_notification_center.hpp"

// The conversation list of the Messages app, with what the library adds to it.
class ConversationListController : public objc::Interface<"CKConversationListController", UIViewController> {
 public:
  // Of the reply request handled last, so that one delivered twice is sent once.
  NSString* brimIdentifier() const { return objc::send<NSString*, "brimIdentifier">(this); }
  void setBrimIdentifier(NSString* identifier) { objc::send<void, "setBrimIdentifier:">(this, identifier); }
};

// In the home screen.
void sendMessageReply(BannerController* self, BrimContainer* view, NSString* text);
void markMessagesAsRead(BannerController* self);

// In the Messages app.
void conversationListViewDidLoad(objc::Original<void(ConversationListController*)> original,
                                 ConversationListController* self);
void conversationListDealloc(objc::Original<void(ConversationListController*)> original,
                             ConversationListController* self);
void receivedMessageContacts(ConversationListController* self, NSNotification* notification);
void markAsRead(ConversationListController* self, NSNotification* notification);
