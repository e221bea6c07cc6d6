// The classes of the Messages app for conversations, chats and messages. Main thread only.
#pragma once

#include "platform/ns_array.hpp"
#include "platform/ns_attributed_string.hpp"
#include "platform/ui_view_controller.hpp"

class IMChat : public objc::Interface<"IMChat", NSObject> {
 public:
  NSString* guid() const { return objc::sendIfAvailable<NSString*, "guid">(this); }
};

class CKConversation : public objc::Interface<"CKConversation", NSObject> {
 public:
  IMChat* chat() const { return objc::sendIfAvailable<IMChat*, "chat">(this); }
};

class CKConversationList : public objc::Interface<"CKConversationList", NSObject> {
 public:
  static CKConversationList* sharedConversationList() {
    return objc::sendIfAvailable<CKConversationList*, "sharedConversationList">(classObject());
  }
  // The conversations as CKConversation objects, in the order of the list.
  NSArray* conversations() const { return objc::sendIfAvailable<NSArray*, "conversations">(this); }
};

class IMMessage : public objc::Interface<"IMMessage", NSObject> {
 public:
  static IMMessage* instantMessage(NSAttributedString* text, NSUInteger flags) {
    return objc::sendIfAvailable<IMMessage*, "instantMessageWithText:flags:">(classObject(), text, flags);
  }
};

class IMChatRegistry : public objc::Interface<"IMChatRegistry", NSObject> {
 public:
  static IMChatRegistry* sharedInstance() {
    return objc::sendIfAvailable<IMChatRegistry*, "sharedInstance">(classObject());
  }
  void send(IMChat* chat, IMMessage* message) {
    objc::sendIfAvailable<void, "_chat:sendMessage:">(this, chat, message);
  }
  void sendReadReceiptForAllMessages(IMChat* chat) {
    objc::sendIfAvailable<void, "_chat_sendReadReceiptForAllMessages:">(this, chat);
  }
};

class CKConversationListController : public objc::Interface<"CKConversationListController", UIViewController> {};
