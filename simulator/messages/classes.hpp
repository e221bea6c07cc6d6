// The Messages app's classes over its store, and what the app does with them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "objc/class_definition.hpp"
#include "platform/messages_app.hpp"
#include "simulator/messages/chat_store.hpp"

struct ChatState {
  messages::Chat chat;
  objc::Ref<NSString> guid;
};
template <>
struct objc::StateOf<IMChat> {
  using Type = ChatState;
};

struct ConversationState {
  objc::Ref<IMChat> chat;
};
template <>
struct objc::StateOf<CKConversation> {
  using Type = ConversationState;
};

struct InstantMessageState {
  objc::Ref<NSAttributedString> text;
  NSUInteger flags = 0;
};
template <>
struct objc::StateOf<IMMessage> {
  using Type = InstantMessageState;
};

namespace messages {

// What the app has done, once it is in the store.
struct Observer {
  std::function<void(const std::string& guid, const std::string& text, std::uint64_t flags)> sent;
  std::function<void(const std::string& guid)> read;
};

// Defines the classes, once, after the view toolkit's.
void registerClasses();

// Once, before the classes are used. What the store refuses is told on standard error, and the app goes on.
void useStore(ChatStore store, Observer observer);

}  // namespace messages
