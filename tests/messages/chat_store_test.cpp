// Tests of the message store: chats, their messages, and two writers at once.
#include "simulator/messages/chat_store.hpp"

#include <gtest/gtest.h>

#include <thread>

#include "tests/support/temporary_folder.hpp"

namespace {

using messages::Chat;
using messages::ChatStore;
using messages::Direction;
using messages::Message;

class Store : public testing::Test {
 protected:
  static Message receivedMessage(const std::string& text) { return {Direction::Received, text, 0, 0, false}; }
  static std::vector<std::string> guids(const ChatStore& store) {
    std::vector<std::string> found;
    for (const Chat& chat : store.chats()) found.push_back(chat.guid);
    return found;
  }

  test::TemporaryFolder folder;
};

TEST_F(Store, IsCreatedIfItIsMissing) {
  EXPECT_FALSE(ChatStore::existsIn(folder.path()));
  const ChatStore store(folder.path());
  EXPECT_TRUE(store.chats().empty());
  EXPECT_TRUE(ChatStore::existsIn(folder.path()));
}

TEST_F(Store, PersistsChatsAndMessages) {
  {
    ChatStore store(folder.path());
    const Chat chat = store.addTo("a", "Anna", receivedMessage("Lunch?"));
    store.add(chat, {Direction::Sent, "Yes", 100005, 1584178860.5, true});
  }
  const ChatStore store(folder.path());
  ASSERT_EQ(store.chats().size(), 1U);
  EXPECT_EQ(store.chats()[0].name, "Anna");
  const std::vector<Message> messages = store.messagesOf(store.chats()[0]);
  ASSERT_EQ(messages.size(), 2U);
  EXPECT_EQ(messages[0].direction, Direction::Received);
  EXPECT_FALSE(messages[0].isRead);
  EXPECT_EQ(messages[1].direction, Direction::Sent);
  EXPECT_EQ(messages[1].text, "Yes");
  EXPECT_EQ(messages[1].flags, 100005U);
  EXPECT_EQ(messages[1].time, 1584178860.5);
}

TEST_F(Store, ListsTheChatWithTheLatestMessageFirst) {
  ChatStore store(folder.path());
  const Chat first = store.addTo("a", "", receivedMessage("1"));
  store.addTo("b", "", receivedMessage("2"));
  EXPECT_EQ(guids(store), (std::vector<std::string>{"b", "a"}));
  store.add(first, receivedMessage("3"));
  EXPECT_EQ(guids(store), (std::vector<std::string>{"a", "b"}));
}

TEST_F(Store, RenamesAChatOnlyIfANameIsGiven) {
  ChatStore store(folder.path());
  store.addTo("a", "Anna", receivedMessage("1"));
  EXPECT_EQ(store.addTo("a", "", receivedMessage("2")).name, "Anna");
  EXPECT_EQ(store.addTo("a", "Anna Weber", receivedMessage("3")).name, "Anna Weber");
  EXPECT_EQ(store.chats().size(), 1U);
}

TEST_F(Store, MarksOnlyTheGivenChatRead) {
  ChatStore store(folder.path());
  const Chat anna = store.addTo("a", "", receivedMessage("1"));
  const Chat ben = store.addTo("b", "", receivedMessage("2"));
  store.markRead(anna);
  EXPECT_TRUE(store.messagesOf(anna)[0].isRead);
  EXPECT_FALSE(store.messagesOf(ben)[0].isRead);
}

TEST_F(Store, PreservesZeroBytesInTexts) {
  ChatStore store(folder.path());
  const std::string text("a\0b\0", 4);
  EXPECT_EQ(store.messagesOf(store.addTo("a", "", receivedMessage(text)))[0].text, text);
}

TEST_F(Store, AcceptsMessagesFromTwoConcurrentWriters) {
  constexpr int messagesPerWriter = 100;
  const auto addMessages = [this](const std::string& guid) {
    ChatStore store(folder.path());
    for (int number = 0; number < messagesPerWriter; ++number)
      store.addTo(guid, "", receivedMessage(std::to_string(number)));
  };
  std::thread secondWriter(addMessages, "a");
  addMessages("b");
  secondWriter.join();
  const ChatStore store(folder.path());
  for (const Chat& chat : store.chats()) EXPECT_EQ(store.messagesOf(chat).size(), std::size_t{messagesPerWriter});
  EXPECT_EQ(store.chats().size(), 2U);
}

TEST_F(Store, NamesThePathThatCannotBeOpened) {
  const auto path = messages::messagesFolder(folder.path()) / "messages.db";
  std::filesystem::create_directories(path);
  try {
    const ChatStore store(folder.path());
    ADD_FAILURE() << "opening a folder as a store must throw";
  } catch (const messages::StoreError& error) {
    EXPECT_NE(std::string(error.what()).find(path.string()), std::string::npos) << error.what();
  }
}

}  // namespace
