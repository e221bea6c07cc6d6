// Tests of the contents of requests to the Messages app: every text arrives unchanged, and malformed requests are
// ignored.
#include <gtest/gtest.h>

#include "platform/ns_data.hpp"
#include "platform/ns_date.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "tests/messages/home_screen_and_messages.hpp"

namespace {

using test::annasAddress;
using test::HomeScreenAndMessages;
using test::Json;

struct Text {
  const char* name;
  std::string text;
};

void PrintTo(const Text& text, std::ostream* stream) { *stream << text.name; }

std::string longText() {
  std::string text;
  while (text.size() < 1'000'000) text += "The quick brown fox jumps over the lazy dog. ";
  return text;
}

class MessagesText : public testing::TestWithParam<Text> {};

TEST_P(MessagesText, ArrivesUnchanged) {
  HomeScreenAndMessages both;
  ASSERT_TRUE(both.launch());
  both.postReply({{"identifier", annasAddress}, {"body", GetParam().text}, {"brimIdentifier", "abcdefgh"}});
  ASSERT_TRUE(both.waitForEvents("message", 1));
  EXPECT_TRUE(both.sent() == std::vector<std::string>{GetParam().text});
  const std::vector<Json> reported = test::eventsNamed(both.phone.log(), "message");
  ASSERT_EQ(reported.size(), 1U);
  EXPECT_TRUE(reported[0].at("text") == GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Texts, MessagesText,
                         testing::Values(Text{"Long", longText()},
                                         Text{"Emoji", "👩‍👩‍👧‍👦🇩🇪👍🏽 ok"},
                                         Text{"RightToLeft", "\u200fשלום \u202Babc\u202C مرحبا\u200e"},
                                         Text{"Quotes", R"('); DROP TABLE message; -- "\" {a = b;} <plist>)"},
                                         Text{"ZeroBytes", std::string("before\0after\0", 13)},
                                         Text{"Lines", "one\r\ntwo\n\tthree"}, Text{"Empty", ""}),
                         [](const auto& instance) { return instance.param.name; });

TEST(TypedReply, IsSentUnchanged) {
  HomeScreenAndMessages both;
  both.reply(" 👩‍👩‍👧‍👦 \"yes\" שלום ");
  ASSERT_TRUE(both.waitForEvents("message", 1));
  EXPECT_EQ(both.sent(), std::vector<std::string>{" 👩‍👩‍👧‍👦 \"yes\" שלום "});
}

const std::vector<Json>& malformedUserInfos() {
  static const std::vector<Json> all = {
      nullptr,
      Json::object(),
      {{"identifier", annasAddress}},
      {{"body", "lost"}},
      {{"brimIdentifier", "a"}},
      {{"identifier", annasAddress}, {"brimIdentifier", "b"}},
      {{"body", "lost"}, {"brimIdentifier", "c"}},
      {{"identifier", ""}, {"body", "lost"}, {"brimIdentifier", "d"}},
      {{"identifier", 7}, {"body", "lost"}, {"brimIdentifier", "e"}},
      {{"identifier", annasAddress}, {"body", 7}, {"brimIdentifier", "f"}},
      {{"identifier", annasAddress}, {"body", {"lost"}}, {"brimIdentifier", "g"}},
      {{"identifier", {annasAddress}}, {"body", "lost"}, {"brimIdentifier", "h"}},
      {{"identifier", annasAddress}, {"body", {{"text", "lost"}}}, {"brimIdentifier", {{"a", "b"}}}},
      {{"identifier", true}, {"body", 1.5}, {"brimIdentifier", {1, 2}}},
      {{"identifier", nullptr}, {"body", nullptr}, {"brimIdentifier", nullptr}},
  };
  return all;
}

class MalformedRequest : public testing::TestWithParam<const char*> {};

TEST_P(MalformedRequest, IsIgnoredWithoutEndingTheApp) {
  HomeScreenAndMessages both({.options = {}, .settings = {{"messagesAutoReadMode", 1}}});
  ASSERT_TRUE(both.launch());
  const pid_t app = both.appProcess();
  const bool isReceipt = std::string(GetParam()) == test::readNotification;
  for (const Json& userInfo : malformedUserInfos())
    if (!isReceipt || userInfo.is_null() || userInfo.value("identifier", Json()) != annasAddress)
      both.post(GetParam(), userInfo);
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_EQ(both.appProcess(), app);
  EXPECT_TRUE(both.sent().empty());
  EXPECT_TRUE(test::eventsNamed(both.phone.log(), "read").empty());
}

INSTANTIATE_TEST_SUITE_P(Names, MalformedRequest, testing::Values(test::replyNotification, test::readNotification));

TEST(MalformedRequest, IsIgnoredIfItContainsDataAndDateValues) {
  HomeScreenAndMessages both;
  ASSERT_TRUE(both.launch());
  {
    const objc::AutoreleasePool pool;
    NSMutableDictionary* userInfo = NSMutableDictionary::dictionaryWithCapacity(3);
    userInfo->setObject(NSString::stringWithUTF8String(annasAddress), "identifier"_ns);
    userInfo->setObject(NSData::dataWithBytes("lost", 4), "body"_ns);
    userInfo->setObject(NSDate::date(), "brimIdentifier"_ns);
    NSDistributedNotificationCenter::defaultCenter()->post("com.lumetra.brim.receivedcontacts"_ns, userInfo);
  }
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_TRUE(both.sent().empty());
}

}  // namespace
