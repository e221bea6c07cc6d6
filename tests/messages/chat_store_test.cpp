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
  static Message received(const std::string& text) { return {Direction::Received, text, 0, 0, false}; }
  static std::vector<std::string> guids(const ChatStore& store) {
    std::vector<std::string> found;
    for (const Chat& chat : store.chats()) found.push_back(chat.guid);
    return found;
  }

  test::TemporaryFolder folder;
};

TEST_F(Store, IsMadeWhereItIsMissing) {
  EXPECT_FALSE(ChatStore::existsIn(folder.path()));
  const ChatStore store(folder.path());
  EXPECT_TRUE(store.chats().empty());
  EXPECT_TRUE(ChatStore::existsIn(folder.path()));
}

TEST_F(Store, KeepsWhatItWasTold) {
  {
    ChatStore store(folder.path());
    const Chat chat = store.addTo("a", "Anna", received("Lunch?"));
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
  const Chat first = store.addTo("a", "", received("1"));
  store.addTo("b", "", received("2"));
  EXPECT_EQ(guids(store), (std::vector<std::string>{"b", "a"}));
  store.add(first, received("3"));
  EXPECT_EQ(guids(store), (std::vector<std::string>{"a", "b"}));
}

TEST_F(Store, NamesAChatAnewWhereANameIsSaid) {
  ChatStore store(folder.path());
  store.addTo("a", "Anna", received("1"));
  EXPECT_EQ(store.addTo("a", "", received("2")).name, "Anna");
  EXPECT_EQ(store.addTo("a", "Anna Weber", received("3")).name, "Anna Weber");
  EXPECT_EQ(store.chats().size(), 1U);
}

TEST_F(Store, MarksOneChatRead) {
  ChatStore store(folder.path());
  const Chat anna = store.addTo("a", "", received("1"));
  const Chat ben = store.addTo("b", "", received("2"));
  store.markRead(anna);
  EXPECT_TRUE(store.messagesOf(anna)[0].isRead);
  EXPECT_FALSE(store.messagesOf(ben)[0].isRead);
}

TEST_F(Store, HoldsZeroBytes) {
  ChatStore store(folder.path());
  const std::string text("a\0b\0", 4);
  EXPECT_EQ(store.messagesOf(store.addTo("a", "", received(text)))[0].text, text);
}

TEST_F(Store, TakesMessagesOfTwoAtOnce) {
  constexpr int each = 100;
  const auto write = [this](const std::string& guid) {
    ChatStore store(folder.path());
    for (int number = 0; number < each; ++number) store.addTo(guid, "", received(std::to_string(number)));
  };
  std::thread other(write, "a");
  write("b");
  other.join();
  const ChatStore store(folder.path());
  for (const Chat& chat : store.chats()) EXPECT_EQ(store.messagesOf(chat).size(), std::size_t{each});
  EXPECT_EQ(store.chats().size(), 2U);
}

TEST_F(Store, SaysWhatIsInItsWay) {
  const auto path = messages::messagesFolder(folder.path()) / "messages.db";
  std::filesystem::create_directories(path);
  try {
    const ChatStore store(folder.path());
    ADD_FAILURE() << "a folder was taken for a store";
  } catch (const messages::StoreError& error) {
    EXPECT_NE(std::string(error.what()).find(path.string()), std::string::npos) << error.what();
  }
}

}  // namespace
