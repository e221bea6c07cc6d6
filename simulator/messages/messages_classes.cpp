#include "simulator/messages/messages_classes.hpp"

#include <cstdio>
#include <memory>
#include <utility>

#include "objc/autorelease_pool.hpp"
#include "objc/property_entry.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/main_queue.hpp"

namespace messages {

namespace {

struct Application {
  ChatStore store;
  StoreObserver observer;
};

std::unique_ptr<Application>& application() {
  static std::unique_ptr<Application> shared;
  return shared;
}

// Runs the work. If the store fails, prints the error and returns false.
template <class Work>
bool tryWithStore(const Work& work) try {
  work();
  return true;
} catch (const StoreError& error) {
  std::fprintf(stderr, "messages: %s\n", error.what());
  return false;
}

objc::Ref<IMChat> chatOf(const Chat& stored) {
  auto chat = objc::make<IMChat>();
  objc::state(chat.get()) = {stored, objc::retain(base::stringOf(stored.guid))};
  return chat;
}

objc::Ref<CKConversation> conversationOf(const Chat& stored) {
  auto conversation = objc::make<CKConversation>();
  objc::state(conversation.get()).chat = chatOf(stored);
  return conversation;
}

template <class Type>
Type* shared(Class) {
  static Type* const instance = objc::make<Type>().leak();
  return instance;
}

NSArray* conversations(CKConversationList*) {
  NSMutableArray* list = NSMutableArray::array();
  tryWithStore([list] {
    for (const Chat& chat : application()->store.chats()) list->addObject(conversationOf(chat));
  });
  return list;
}

IMMessage* instantMessage(Class, NSAttributedString* text, NSUInteger flags) {
  auto message = objc::make<IMMessage>();
  objc::state(message.get()) = {objc::retain(text), flags};
  return objc::autorelease(std::move(message));
}

void sendMessage(IMChatRegistry*, IMChat* chat, IMMessage* message) {
  if (chat == nullptr || message == nullptr) return;
  const Chat& stored = objc::state(chat).chat;
  const InstantMessageState& state = objc::state(message);
  const std::string text = base::textOf(state.text->string());
  const bool isStored = tryWithStore([&] {
    application()->store.add(stored, {Direction::Sent, text, state.flags, foundation::unixTimeNow(), true});
  });
  if (isStored) application()->observer.sent(stored.guid, text, state.flags);
}

void sendReadReceipt(IMChatRegistry*, IMChat* chat) {
  if (chat == nullptr) return;
  const Chat& stored = objc::state(chat).chat;
  if (tryWithStore([&] { application()->store.markRead(stored); })) application()->observer.read(stored.guid);
}

void viewDidLoad(CKConversationListController* self) {
  objc::sendSuper<"CKConversationListController", void, "viewDidLoad">(self);
}

void defineConversations() {
  static constexpr objc::PropertyEntry chat[] = {objc::readOnly<"guid", IMChat, &ChatState::guid>()};
  static constexpr objc::PropertyEntry conversation[] = {
      objc::readOnly<"chat", CKConversation, &ConversationState::chat>()};
  static constexpr objc::MethodEntry list[] = {
      objc::classMethod<"sharedConversationList", &shared<CKConversationList>>(),
      objc::method<"conversations", &conversations>(),
  };
  objc::defineClassWithState<IMChat>({});
  objc::addProperties(IMChat::classObject(), chat);
  objc::defineClassWithState<CKConversation>({});
  objc::addProperties(CKConversation::classObject(), conversation);
  objc::defineClass<CKConversationList>(list);
}

void defineSending() {
  static constexpr objc::MethodEntry message[] = {
      objc::classMethod<"instantMessageWithText:flags:", &instantMessage>()};
  static constexpr objc::PropertyEntry properties[] = {
      objc::readOnly<"text", IMMessage, &InstantMessageState::text>(),
      objc::readOnly<"flags", IMMessage, &InstantMessageState::flags>(),
  };
  static constexpr objc::MethodEntry registry[] = {
      objc::classMethod<"sharedInstance", &shared<IMChatRegistry>>(),
      objc::method<"_chat:sendMessage:", &sendMessage>(),
      objc::method<"_chat_sendReadReceiptForAllMessages:", &sendReadReceipt>(),
  };
  objc::defineClassWithState<IMMessage>(message);
  objc::addProperties(IMMessage::classObject(), properties);
  objc::defineClass<IMChatRegistry>(registry);
}

}  // namespace

void registerClasses() {
  const objc::AutoreleasePool pool;
  defineConversations();
  defineSending();
  static constexpr objc::MethodEntry controller[] = {objc::method<"viewDidLoad", &viewDidLoad>()};
  objc::defineClass<CKConversationListController>(controller);
}

void useStore(ChatStore store, StoreObserver observer) {
  application() = std::make_unique<Application>(Application{std::move(store), std::move(observer)});
}

}  // namespace messages
