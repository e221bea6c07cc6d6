// The classes of the Messages app, which read and write the store. Main thread.
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

// Functions that are called after the app has written to the store.
struct StoreObserver {
  std::function<void(const std::string& guid, const std::string& text, std::uint64_t flags)> sent;
  std::function<void(const std::string& guid)> read;
};

// Registers the classes. Call this once, after uikit::registerClasses.
void registerClasses();

// Sets the store that the classes use. Call this once, before the classes are used. If an operation of the store fails
// later, it has no effect, and an error is printed to standard error.
void useStore(ChatStore store, StoreObserver observer);

}  // namespace messages
