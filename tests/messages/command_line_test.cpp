// Tests of the command line of the Messages program: storing and listing messages, and rejecting invalid options.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "simulator/messages/messages_options.hpp"
#include "tests/messages/captured_errors.hpp"
#include "tests/messages/home_screen_and_messages.hpp"

namespace {

using test::HomeScreenAndMessages;
using test::Json;

struct Outcome {
  int status = -1;
  std::string output;
};

class MessagesProgram : public testing::Test {
 protected:
  Outcome run(const std::string& arguments, const std::filesystem::path& root) const {
    const std::filesystem::path output = folder.path() / "output";
    const std::string command =
        std::string(MESSAGES) + " --root '" + root.string() + "' " + arguments + " > '" + output.string() + "'";
    const int status = std::system(command.c_str());
    std::ifstream file(output);
    return {WEXITSTATUS(status), {std::istreambuf_iterator<char>(file), {}}};
  }
  Outcome run(const std::string& arguments) const { return run(arguments, folder.path() / "root"); }

  test::CapturedErrors errors;
  test::TemporaryFolder folder;
};

TEST_F(MessagesProgram, ListsNoConversationsInAMissingRoot) {
  const Outcome outcome = run("--list");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "no conversations\n");
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "root"));
}

TEST_F(MessagesProgram, DoesNotCreateAMissingRootIfStartedSuspended) {
  EXPECT_EQ(run("--suspended </dev/null").status, 2);
  EXPECT_TRUE(errors.contains("does not exist")) << errors.text();
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "root"));
}

TEST_F(MessagesProgram, StoresAndListsAReceivedMessage) {
  EXPECT_EQ(run("--receive +491701234567 'Lunch?' --from 'Anna Weber'").status, 0);
  EXPECT_TRUE(errors.contains("no home screen uses")) << errors.text();
  EXPECT_EQ(run("--receive 'iMessage;+;chat42' -- '--list'").status, 0);
  const std::string list = run("--list").output;
  EXPECT_EQ(list.find("chat42 (iMessage;+;chat42)\n  * "), 0U) << list;
  EXPECT_NE(list.find("chat42: --list\n"), std::string::npos) << list;
  EXPECT_NE(list.find("Anna Weber (iMessage;-;+491701234567)\n  * "), std::string::npos) << list;
  EXPECT_NE(list.find("Anna Weber: Lunch?\n"), std::string::npos) << list;
}

TEST_F(MessagesProgram, ListsAMessageOnOneLineWithoutControlCharacters) {
  run("--receive a \"$(printf 'one\\ntwo\\033[31m')\"");
  EXPECT_NE(run("--list").output.find("a: one two [31m\n"), std::string::npos);
}

TEST_F(MessagesProgram, ReceivedMessageIsPresentedAsABanner) {
  HomeScreenAndMessages both;
  EXPECT_EQ(run("--receive +491701234567 'Still there?' --from 'Anna Weber'", both.phone.root()).status, 0);
  both.phone.run({{"do", "await"}, {"for", "banner"}, {"seconds", 60}});
  const std::vector<Json> banners = test::eventsNamed(both.phone.log(), "banner");
  ASSERT_EQ(banners.size(), 1U);
  EXPECT_EQ(banners[0], Json({{"event", "banner"}, {"controller", 1}, {"section", "com.apple.MobileSMS"}}));
  both.phone.wait(1);
  EXPECT_EQ(both.phone.view(1, "headerLabel").at("text"), "Anna Weber");
  EXPECT_EQ(both.phone.view(1, "bodyLabel").at("text"), "Still there?");
}

TEST_F(MessagesProgram, ListsAReceivedMessageAndItsReply) {
  HomeScreenAndMessages both;
  run("--receive ben@example.org 'Coffee?' --from Ben", both.phone.root());
  both.phone.run({{"do", "await"}, {"for", "banner"}, {"seconds", 60}});
  both.phone.wait(1);
  both.phone.run({{"do", "drag"}, {"by", {0, 200}}});
  both.phone.wait(0.5);
  both.phone.run({{"do", "type"}, {"text", "Gladly"}});
  both.phone.run({{"do", "key"}, {"name", "return"}});
  both.phone.run({{"do", "await"}, {"for", "read"}, {"seconds", 60}});
  const std::string list = run("--list", both.phone.root()).output;
  EXPECT_EQ(list.find("Ben (iMessage;-;ben@example.org)\n    "), 0U) << list;
  EXPECT_NE(list.find("Ben: Coffee?\n"), std::string::npos) << list;
  EXPECT_NE(list.find("me: Gladly\n"), std::string::npos) << list;
}

TEST_F(MessagesProgram, ReadingAConversationRemovesItsNotifications) {
  HomeScreenAndMessages both;
  for (const char* message : {"anna@example.org 'Lunch?' --from Anna", "ben@example.org 'Hello?' --from Ben",
                              "ben@example.org 'Coffee?' --from Ben"}) {
    run(std::string("--receive ") + message, both.phone.root());
    both.phone.run({{"do", "await"}, {"for", "banner"}, {"seconds", 60}});
    both.phone.wait(1);
  }
  ASSERT_EQ(both.phone.run({{"do", "notifications"}}).at("notifications").size(), 3U);
  both.phone.run({{"do", "drag"}, {"by", {0, 200}}});
  both.phone.wait(0.5);
  both.phone.run({{"do", "type"}, {"text", "Gladly"}});
  both.phone.run({{"do", "key"}, {"name", "return"}});
  both.phone.run({{"do", "await"}, {"for", "read"}, {"seconds", 60}});
  both.phone.wait(0.1);
  const Json listed = both.phone.run({{"do", "notifications"}}).at("notifications");
  ASSERT_EQ(listed.size(), 1U);
  EXPECT_EQ(listed[0].at("message"), "Lunch?");
}

struct InvalidOptions {
  std::vector<const char*> arguments;
  const char* expectedError;
};

void PrintTo(const InvalidOptions& invalid, std::ostream* stream) { *stream << invalid.expectedError; }

class MessagesOptions : public testing::TestWithParam<InvalidOptions> {};

TEST_P(MessagesOptions, NameTheExpectedInput) {
  const auto parsed = messages::parseMessagesOptions(GetParam().arguments);
  const auto* error = std::get_if<process::OptionError>(&parsed);
  ASSERT_NE(error, nullptr);
  EXPECT_NE(error->message.find(GetParam().expectedError), std::string::npos) << error->message;
}

INSTANTIATE_TEST_SUITE_P(InvalidOptions, MessagesOptions,
                         testing::Values(InvalidOptions{{"--receive", "a"}, "requires the text"},
                                         InvalidOptions{{"--receive"}, "CHAT"},
                                         InvalidOptions{{"--receive", "", "x"}, "an address"},
                                         InvalidOptions{{"--receive", "a", "b", "c"}, "unknown option c"},
                                         InvalidOptions{{"hello"}, "unknown option hello"},
                                         InvalidOptions{{"--from", "Anna"}, "requires --receive"},
                                         InvalidOptions{{"--list", "--receive", "a", "b"}, "without --list"},
                                         InvalidOptions{{"--receive", "a", "b", "--list"}, "without --receive"},
                                         InvalidOptions{{"--list=yes"}, "takes no value"},
                                         InvalidOptions{{"--system", "10"}, "11.0 or later"}));

}  // namespace
