// Tests of the welcome notifications of a live phone, on a stepped clock.
#include "simulator/runner/welcome.hpp"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "simulator/foundation/root.hpp"
#include "simulator/messages/chat_store.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

using Json = nlohmann::ordered_json;

class WelcomeTest : public testing::Test {
 protected:
  WelcomeTest() : session_({.root = folder_.path() / "root", .time = 1584178860}) {}

  Json run(const Json& command) {
    Json answer = session_.run(command);
    EXPECT_EQ(answer["ok"], true) << answer;
    return answer;
  }

  // The titles of the notifications that have been presented, latest first.
  std::vector<std::string> titles() {
    std::vector<std::string> titles;
    const Json answer = run({{"do", "notifications"}});
    for (const Json& notification : answer["notifications"]) titles.push_back(notification["title"]);
    return titles;
  }

  test::TemporaryFolder folder_;
  runner::Session session_;
};

TEST_F(WelcomeTest, PresentsAPhotoAConversationAndAnAlarm) {
  runner::scheduleWelcome(session_);
  EXPECT_EQ(titles(), std::vector<std::string>());
  run({{"do", "wait"}, {"seconds", 2}});
  EXPECT_EQ(titles(), std::vector<std::string>({"Kenji"}));
  run({{"do", "wait"}, {"seconds", 8}});
  EXPECT_EQ(titles(), std::vector<std::string>({"Anna Weber", "Kenji"}));
  run({{"do", "wait"}, {"seconds", 9}});
  EXPECT_EQ(titles(), std::vector<std::string>({"Alarm", "Anna Weber", "Kenji"}));
}

TEST_F(WelcomeTest, StoresTheConversationSoThatItCanBeAnswered) {
  runner::scheduleWelcome(session_);
  run({{"do", "wait"}, {"seconds", 10}});
  EXPECT_EQ(messages::ChatStore(foundation::root()).chats().size(), 1U);
}

}  // namespace
