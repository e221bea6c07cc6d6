// A reply and a read receipt on their way from a banner to the store of the Messages app.
#include <gtest/gtest.h>

#include "tests/messages/two_processes.hpp"

namespace {

using messages::Direction;
using messages::Message;
using test::annasAddress;
using test::annasChat;
using test::eventsNamed;
using test::Json;
using test::TwoProcesses;

test::Setup withReadMode(int mode) { return {.options = {}, .settings = {{"messagesAutoReadMode", mode}}}; }

std::size_t unread(const TwoProcesses& both, const std::string& guid = annasChat) {
  std::size_t count = 0;
  for (const Message& message : both.messagesOf(guid))
    if (message.direction == Direction::Received && !message.isRead) ++count;
  return count;
}

TEST(MessagesReply, IsSentInTheChatOfItsThread) {
  TwoProcesses both;
  both.receive("iMessage;-;ben@example.org", "Hi");
  const int controller = both.reply("At one!");
  ASSERT_TRUE(both.waitFor("message", 1));
  EXPECT_EQ(both.sent(), std::vector<std::string>{"At one!"});
  EXPECT_TRUE(both.sent("iMessage;-;ben@example.org").empty());
  both.phone.wait(2);
  EXPECT_TRUE(both.phone.state(controller).at("dismissed"));
}

TEST(MessagesReply, LaunchesPostsVibratesAndIsReported) {
  TwoProcesses both;
  const int controller = both.presentOpen();
  const Json identifier = both.phone.state(controller).at("identifier");
  both.phone.run({{"do", "type"}, {"text", "At one!"}});
  both.phone.log();
  both.phone.run({{"do", "key"}, {"name", "return"}});
  ASSERT_TRUE(both.waitFor("read", 1));
  Json ours = Json::array();
  for (const Json& event : both.phone.log())
    if (event.at("event") != "post") ours.push_back(event);
  ASSERT_EQ(ours.size(), 5U) << ours;
  EXPECT_EQ(ours[0], Json({{"event", "launch"}, {"bundle", "com.apple.MobileSMS"}, {"suspended", true}}));
  EXPECT_EQ(ours[1].at("name"), "com.lumetra.brim.receivedcontacts");
  EXPECT_EQ(ours[1].at("userInfo"),
            Json({{"body", "At one!"}, {"brimIdentifier", identifier}, {"identifier", annasAddress}}));
  EXPECT_EQ(ours[2].at("event"), "haptic");
  // Those come from another process; among themselves they are in order.
  EXPECT_EQ(ours[3], Json({{"event", "message"}, {"chat", annasChat}, {"text", "At one!"}, {"flags", 100005}}));
  EXPECT_EQ(ours[4], Json({{"event", "read"}, {"chat", annasChat}}));
}

TEST(MessagesReply, DoesNotVibrateWhenThatIsOff) {
  TwoProcesses both({.options = {}, .settings = {{"vibrate_on_send", false}}});
  both.reply("At one!");
  ASSERT_TRUE(both.waitFor("message", 1));
  EXPECT_TRUE(eventsNamed(both.phone.log(), "haptic").empty());
}

TEST(MessagesReply, TwoBannersBothSend) {
  TwoProcesses both;
  both.reply("One");
  both.phone.wait(2);
  both.reply("Two");
  ASSERT_TRUE(both.waitFor("message", 2));
  EXPECT_EQ(both.sent(), (std::vector<std::string>{"One", "Two"}));
}

TEST(MessagesReply, OfAnotherApplicationsBannerStaysInTheHomeScreen) {
  TwoProcesses both;
  both.phone.present({{"section", "org.example.chat"}, {"title", "Anna"}, {"thread", annasAddress}});
  both.phone.wait(1);
  both.phone.run({{"do", "drag"}, {"by", {0, 200}}});
  both.phone.wait(0.5);
  EXPECT_EQ(both.app(), 0);
  EXPECT_TRUE(eventsNamed(both.phone.log(), "distributed").empty());
}

TEST(MessagesReadMode, AfterReplyMarksTheChatReadOnceItWasSent) {
  TwoProcesses both(withReadMode(2));
  both.reply("At one!");
  ASSERT_TRUE(both.waitFor("read", 1));
  EXPECT_EQ(unread(both), 0U);
}

TEST(MessagesReadMode, AfterReplyLeavesAnExpandedBannerUnread) {
  TwoProcesses both(withReadMode(2));
  both.presentOpen();
  EXPECT_TRUE(eventsNamed(both.phone.log(), "distributed").empty());
  EXPECT_EQ(unread(both), 1U);
}

TEST(MessagesReadMode, WhenExpandedMarksTheChatReadAtOnce) {
  TwoProcesses both(withReadMode(1));
  const int controller = both.presentOpen();
  ASSERT_TRUE(both.waitFor("read", 1));
  EXPECT_EQ(unread(both), 0U);
  const Json events = both.phone.log();
  EXPECT_EQ(eventsNamed(events, "launch").size(), 1U);
  const std::vector<Json> posted = eventsNamed(events, "distributed");
  ASSERT_EQ(posted.size(), 1U);
  EXPECT_EQ(posted[0].at("name"), "com.lumetra.brim.markAsRead");
  EXPECT_EQ(posted[0].at("userInfo"),
            Json({{"brimIdentifier", both.phone.state(controller).at("identifier")}, {"identifier", annasAddress}}));
  EXPECT_TRUE(eventsNamed(events, "haptic").empty());
  EXPECT_FALSE(both.phone.state(controller).at("isDismissing"));
}

TEST(MessagesReadMode, WhenExpandedLeavesAReplyWithoutReceipt) {
  TwoProcesses both(withReadMode(1));
  ASSERT_TRUE(both.launch());
  both.postReply({{"identifier", annasAddress}, {"body", "At one!"}, {"brimIdentifier", "abcdefgh"}});
  ASSERT_TRUE(both.fence());
  EXPECT_EQ(both.sent(), std::vector<std::string>{"At one!"});
  EXPECT_EQ(unread(both), 1U);
}

TEST(MessagesReadMode, OffNeverMarksRead) {
  TwoProcesses both(withReadMode(0));
  both.reply("At one!");
  both.post(test::readName, nullptr);
  ASSERT_TRUE(both.fence());
  EXPECT_EQ(both.sent(), std::vector<std::string>{"At one!"});
  EXPECT_EQ(unread(both), 1U);
  EXPECT_EQ(eventsNamed(both.phone.log(), "distributed").size(), 3U) << "the reply, the receipt and the fence";
}

class MessagesReceiptRequest : public testing::TestWithParam<std::pair<int, std::size_t>> {};

TEST_P(MessagesReceiptRequest, MarksReadInTheModeWhenExpandedAlone) {
  const auto [mode, unreadAfterwards] = GetParam();
  TwoProcesses both(withReadMode(mode));
  ASSERT_TRUE(both.launch());
  both.post(test::readName, {{"identifier", annasAddress}});
  ASSERT_TRUE(both.fence());
  EXPECT_EQ(unread(both), unreadAfterwards);
}

INSTANTIATE_TEST_SUITE_P(Modes, MessagesReceiptRequest,
                         testing::Values(std::pair(0, 1U), std::pair(1, 0U), std::pair(2, 1U), std::pair(3, 1U),
                                         std::pair(-1, 1U)));

TEST(MessagesReadMode, AChangeReachesTheRunningApp) {
  TwoProcesses both(withReadMode(0));
  ASSERT_TRUE(both.launch());
  both.phone.set("messagesAutoReadMode", 2);
  // How soon it does is the preferences' affair.
  int count = 0;
  EXPECT_TRUE(test::eventually([&] {
    both.postReply({{"identifier", annasAddress}, {"body", "x"}, {"brimIdentifier", std::to_string(++count)}});
    return both.fence() && unread(both) == 0;
  }));
}

TEST(MessagesRequest, DeliveredTwiceIsSentOnce) {
  TwoProcesses both;
  ASSERT_TRUE(both.launch());
  const Json request = {{"identifier", annasAddress}, {"body", "At one!"}, {"brimIdentifier", "abcdefgh"}};
  both.postReply(request);
  both.postReply(request);
  ASSERT_TRUE(both.fence());
  EXPECT_EQ(both.sent(), std::vector<std::string>{"At one!"});
}

TEST(MessagesRequest, IsComparedWithTheOneBeforeAlone) {
  TwoProcesses both;
  ASSERT_TRUE(both.launch());
  for (const char* identifier : {"a", "b", "a"})
    both.postReply({{"identifier", annasAddress}, {"body", identifier}, {"brimIdentifier", identifier}});
  ASSERT_TRUE(both.fence());
  EXPECT_EQ(both.sent(), (std::vector<std::string>{"a", "b", "a"}));
}

TEST(MessagesRequest, ThatIsDroppedCountsAsHandled) {
  TwoProcesses both;
  ASSERT_TRUE(both.launch());
  both.postReply({{"identifier", "nobody"}, {"body", "lost"}, {"brimIdentifier", "a"}});
  both.postReply({{"identifier", annasAddress}, {"body", "again"}, {"brimIdentifier", "a"}});
  ASSERT_TRUE(both.fence());
  EXPECT_TRUE(both.sent().empty());
}

TEST(MessagesRequest, WithoutAnIdentifierOfItsOwnIsAlwaysSent) {
  TwoProcesses both;
  ASSERT_TRUE(both.launch());
  both.postReply({{"identifier", annasAddress}, {"body", "one"}});
  both.postReply({{"identifier", annasAddress}, {"body", "two"}});
  ASSERT_TRUE(both.fence());
  EXPECT_EQ(both.sent(), (std::vector<std::string>{"one", "two"}));
}

TEST(MessagesRequest, AThousandInARowAreSentOnceAndInOrder) {
  TwoProcesses both;
  ASSERT_TRUE(both.launch());
  std::vector<std::string> expected;
  for (int number = 0; number < 1000; ++number) {
    expected.push_back("message " + std::to_string(number));
    both.postReply(
        {{"identifier", annasAddress}, {"body", expected.back()}, {"brimIdentifier", std::to_string(number)}});
  }
  ASSERT_TRUE(both.fence());
  EXPECT_EQ(both.sent(), expected);
}

TEST(MessagesMatching, TakesTheFirstOfTheListWhereTwoChatsContainTheIdentifier) {
  TwoProcesses both;
  both.receive("iMessage;-;+4917012345678", "Wrong number?");
  ASSERT_TRUE(both.launch());
  both.postReply({{"identifier", annasAddress}, {"body", "to the later one"}, {"brimIdentifier", "a"}});
  ASSERT_TRUE(both.fence());
  both.receive(annasChat, "Still there?");
  both.postReply({{"identifier", annasAddress}, {"body", "to Anna"}, {"brimIdentifier", "b"}});
  ASSERT_TRUE(both.fence());
  EXPECT_EQ(both.sent("iMessage;-;+4917012345678"), std::vector<std::string>{"to the later one"});
  EXPECT_EQ(both.sent(annasChat), std::vector<std::string>{"to Anna"});
}

TEST(MessagesMatching, RegardsCase) {
  TwoProcesses both;
  both.receive("iMessage;-;ben@example.org", "Hi");
  ASSERT_TRUE(both.launch());
  both.postReply({{"identifier", "Ben@example.org"}, {"body", "lost"}, {"brimIdentifier", "a"}});
  both.postReply({{"identifier", "ben@example.org"}, {"body", "sent"}, {"brimIdentifier", "b"}});
  ASSERT_TRUE(both.fence());
  EXPECT_EQ(both.sent("iMessage;-;ben@example.org"), std::vector<std::string>{"sent"});
}

TEST(MessagesMatching, DropsWhatBelongsToNoChat) {
  TwoProcesses both;
  both.reply("to nobody", "+00");
  ASSERT_TRUE(both.fence());
  EXPECT_TRUE(both.sent().empty());
}

}  // namespace
