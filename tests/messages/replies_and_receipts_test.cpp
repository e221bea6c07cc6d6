// Tests of replies and read receipts, from the banner in the home screen to the store of the Messages app.
#include <gtest/gtest.h>

#include "tests/messages/home_screen_and_messages.hpp"

namespace {

using messages::Direction;
using messages::Message;
using test::annasAddress;
using test::annasChat;
using test::eventsNamed;
using test::HomeScreenAndMessages;
using test::Json;

test::Setup withReadMode(int mode) { return {.options = {}, .settings = {{"messagesAutoReadMode", mode}}}; }

std::size_t unreadCount(const HomeScreenAndMessages& both, const std::string& guid = annasChat) {
  std::size_t count = 0;
  for (const Message& message : both.messagesOf(guid))
    if (message.direction == Direction::Received && !message.isRead) ++count;
  return count;
}

TEST(MessagesReply, IsSentInTheChatOfItsThread) {
  HomeScreenAndMessages both;
  both.receive("iMessage;-;ben@example.org", "Hi");
  const int controller = both.reply("At one!");
  ASSERT_TRUE(both.waitForEvents("message", 1));
  EXPECT_EQ(both.sent(), std::vector<std::string>{"At one!"});
  EXPECT_TRUE(both.sent("iMessage;-;ben@example.org").empty());
  both.phone.wait(2);
  EXPECT_TRUE(both.phone.state(controller).at("dismissed"));
}

TEST(MessagesReply, LaunchesTheAppPostsTheRequestVibratesAndIsReported) {
  HomeScreenAndMessages both;
  const int controller = both.presentExpanded();
  const Json identifier = both.phone.state(controller).at("identifier");
  both.phone.run({{"do", "type"}, {"text", "At one!"}});
  both.phone.log();
  both.phone.run({{"do", "key"}, {"name", "return"}});
  ASSERT_TRUE(both.waitForEvents("read", 1));
  Json remaining = Json::array();
  for (const Json& event : both.phone.log())
    if (event.at("event") != "post") remaining.push_back(event);
  ASSERT_EQ(remaining.size(), 5U) << remaining;
  EXPECT_EQ(remaining[0], Json({{"event", "launch"}, {"bundle", "com.apple.MobileSMS"}, {"suspended", true}}));
  EXPECT_EQ(remaining[1].at("name"), "com.lumetra.brim.receivedcontacts");
  EXPECT_EQ(remaining[1].at("userInfo"),
            Json({{"body", "At one!"}, {"brimIdentifier", identifier}, {"identifier", annasAddress}}));
  EXPECT_EQ(remaining[2].at("event"), "haptic");
  // The app reports the next two events over a socket, which preserves their order.
  EXPECT_EQ(remaining[3], Json({{"event", "message"}, {"chat", annasChat}, {"text", "At one!"}, {"flags", 100005}}));
  EXPECT_EQ(remaining[4], Json({{"event", "read"}, {"chat", annasChat}}));
}

TEST(MessagesReply, DoesNotVibrateWhenTheSettingIsOff) {
  HomeScreenAndMessages both({.options = {}, .settings = {{"vibrate_on_send", false}}});
  both.reply("At one!");
  ASSERT_TRUE(both.waitForEvents("message", 1));
  EXPECT_TRUE(eventsNamed(both.phone.log(), "haptic").empty());
}

TEST(MessagesReply, IsSentFromEachOfTwoBanners) {
  HomeScreenAndMessages both;
  const int first = both.reply("One");
  const std::string identifier = both.phone.state(first).at("identifier");
  both.phone.wait(2);
  const int second = both.reply("Two");
  EXPECT_NE(both.phone.state(second).at("identifier"), identifier);
  ASSERT_TRUE(both.waitForEvents("message", 2));
  EXPECT_EQ(both.sent(), (std::vector<std::string>{"One", "Two"}));
}

TEST(MessagesReply, IsNotPostedForAnotherApplicationsBanner) {
  HomeScreenAndMessages both;
  both.phone.present({{"section", "org.example.chat"}, {"title", "Anna"}, {"thread", annasAddress}});
  both.phone.wait(1);
  both.phone.run({{"do", "drag"}, {"by", {0, 200}}});
  both.phone.wait(0.5);
  EXPECT_EQ(both.appProcess(), 0);
  EXPECT_TRUE(eventsNamed(both.phone.log(), "distributed").empty());
}

TEST(MessagesReadMode, AfterReplyMarksTheChatReadOnceTheReplyIsSent) {
  HomeScreenAndMessages both(withReadMode(2));
  both.reply("At one!");
  ASSERT_TRUE(both.waitForEvents("read", 1));
  EXPECT_EQ(unreadCount(both), 0U);
}

TEST(MessagesReadMode, AfterReplyLeavesAnExpandedBannerUnread) {
  HomeScreenAndMessages both(withReadMode(2));
  both.presentExpanded();
  EXPECT_TRUE(eventsNamed(both.phone.log(), "distributed").empty());
  EXPECT_EQ(unreadCount(both), 1U);
}

TEST(MessagesReadMode, WhenExpandedMarksTheChatReadImmediately) {
  HomeScreenAndMessages both(withReadMode(1));
  const int controller = both.presentExpanded();
  ASSERT_TRUE(both.waitForEvents("read", 1));
  EXPECT_EQ(unreadCount(both), 0U);
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

TEST(MessagesReadMode, WhenExpandedDoesNotMarkTheChatReadAfterAReply) {
  HomeScreenAndMessages both(withReadMode(1));
  ASSERT_TRUE(both.launch());
  both.postReply({{"identifier", annasAddress}, {"body", "At one!"}, {"brimIdentifier", "abcdefgh"}});
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_EQ(both.sent(), std::vector<std::string>{"At one!"});
  EXPECT_EQ(unreadCount(both), 1U);
}

TEST(MessagesReadMode, OffNeverMarksTheChatRead) {
  HomeScreenAndMessages both(withReadMode(0));
  both.reply("At one!");
  both.post(test::readNotification, nullptr);
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_EQ(both.sent(), std::vector<std::string>{"At one!"});
  EXPECT_EQ(unreadCount(both), 1U);
  EXPECT_EQ(eventsNamed(both.phone.log(), "distributed").size(), 3U) << "the reply, the receipt and the marker";
}

class MessagesReceiptRequest : public testing::TestWithParam<std::pair<int, std::size_t>> {};

TEST_P(MessagesReceiptRequest, MarksTheChatReadOnlyInModeWhenExpanded) {
  const auto [mode, expectedUnread] = GetParam();
  HomeScreenAndMessages both(withReadMode(mode));
  ASSERT_TRUE(both.launch());
  both.post(test::readNotification, {{"identifier", annasAddress}});
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_EQ(unreadCount(both), expectedUnread);
}

INSTANTIATE_TEST_SUITE_P(Modes, MessagesReceiptRequest,
                         testing::Values(std::pair(0, 1U), std::pair(1, 0U), std::pair(2, 1U), std::pair(3, 1U),
                                         std::pair(-1, 1U)));

TEST(MessagesReadMode, AChangeReachesTheRunningApp) {
  HomeScreenAndMessages both(withReadMode(0));
  ASSERT_TRUE(both.launch());
  both.phone.set("messagesAutoReadMode", 2);
  // The app receives the changed setting asynchronously, so the test sends replies until a reply marks the chat read.
  int count = 0;
  EXPECT_TRUE(test::eventually([&] {
    both.postReply({{"identifier", annasAddress}, {"body", "x"}, {"brimIdentifier", std::to_string(++count)}});
    return both.waitForPostedRequests() && unreadCount(both) == 0;
  }));
}

TEST(MessagesRequest, IsSentOnceIfItIsDeliveredTwice) {
  HomeScreenAndMessages both;
  ASSERT_TRUE(both.launch());
  const Json request = {{"identifier", annasAddress}, {"body", "At one!"}, {"brimIdentifier", "abcdefgh"}};
  both.postReply(request);
  both.postReply(request);
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_EQ(both.sent(), std::vector<std::string>{"At one!"});
}

TEST(MessagesRequest, IsComparedOnlyWithThePreviousRequest) {
  HomeScreenAndMessages both;
  ASSERT_TRUE(both.launch());
  for (const char* identifier : {"a", "b", "a"})
    both.postReply({{"identifier", annasAddress}, {"body", identifier}, {"brimIdentifier", identifier}});
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_EQ(both.sent(), (std::vector<std::string>{"a", "b", "a"}));
}

TEST(MessagesRequest, IsHandledOnceEvenIfNoChatMatches) {
  HomeScreenAndMessages both;
  ASSERT_TRUE(both.launch());
  both.postReply({{"identifier", "nobody"}, {"body", "lost"}, {"brimIdentifier", "a"}});
  both.postReply({{"identifier", annasAddress}, {"body", "again"}, {"brimIdentifier", "a"}});
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_TRUE(both.sent().empty());
}

TEST(MessagesRequest, IsAlwaysSentIfItHasNoBrimIdentifier) {
  HomeScreenAndMessages both;
  ASSERT_TRUE(both.launch());
  both.postReply({{"identifier", annasAddress}, {"body", "one"}});
  both.postReply({{"identifier", annasAddress}, {"body", "two"}});
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_EQ(both.sent(), (std::vector<std::string>{"one", "two"}));
}

TEST(MessagesRequest, AThousandRequestsAreEachSentOnceAndInOrder) {
  HomeScreenAndMessages both;
  ASSERT_TRUE(both.launch());
  std::vector<std::string> expected;
  for (int number = 0; number < 1000; ++number) {
    expected.push_back("message " + std::to_string(number));
    both.postReply(
        {{"identifier", annasAddress}, {"body", expected.back()}, {"brimIdentifier", std::to_string(number)}});
  }
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_EQ(both.sent(), expected);
}

TEST(MessagesMatching, PrefersTheFirstListedChatThatContainsTheIdentifier) {
  HomeScreenAndMessages both;
  both.receive("iMessage;-;+4917012345678", "Wrong number?");
  ASSERT_TRUE(both.launch());
  both.postReply({{"identifier", annasAddress}, {"body", "to the wrong number"}, {"brimIdentifier", "a"}});
  ASSERT_TRUE(both.waitForPostedRequests());
  both.receive(annasChat, "Still there?");
  both.postReply({{"identifier", annasAddress}, {"body", "to Anna"}, {"brimIdentifier", "b"}});
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_EQ(both.sent("iMessage;-;+4917012345678"), std::vector<std::string>{"to the wrong number"});
  EXPECT_EQ(both.sent(annasChat), std::vector<std::string>{"to Anna"});
}

TEST(MessagesMatching, IsCaseSensitive) {
  HomeScreenAndMessages both;
  both.receive("iMessage;-;ben@example.org", "Hi");
  ASSERT_TRUE(both.launch());
  both.postReply({{"identifier", "Ben@example.org"}, {"body", "lost"}, {"brimIdentifier", "a"}});
  both.postReply({{"identifier", "ben@example.org"}, {"body", "sent"}, {"brimIdentifier", "b"}});
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_EQ(both.sent("iMessage;-;ben@example.org"), std::vector<std::string>{"sent"});
}

TEST(MessagesMatching, DropsARequestThatMatchesNoChat) {
  HomeScreenAndMessages both;
  both.reply("to nobody", "+00");
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_TRUE(both.sent().empty());
}

}  // namespace
