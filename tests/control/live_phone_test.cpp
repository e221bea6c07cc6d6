// Tests of a live phone: its start and end, its root, and the commands of several clients.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <filesystem>
#include <string>
#include <thread>

#include "simulator/foundation/local_socket.hpp"
#include "simulator/process/control_socket.hpp"
#include "tests/control/live_phone.hpp"

namespace {

using test::Json;
using test::LivePhone;
using test::Outcome;
using testing::ElementsAre;
using testing::HasSubstr;

const Json anna = {{"do", "present"}, {"section", "com.apple.mobilemail"}, {"title", "Anna"}};

TEST(LivePhoneProcess, EndsWithSuccessWhenItIsTerminated) {
  LivePhone phone;
  kill(phone.process().process(), SIGTERM);
  EXPECT_TRUE(test::becomesTrue([&] { return phone.process().hasEnded(); }));
  EXPECT_TRUE(phone.process().hasSucceeded());
  EXPECT_FALSE(std::filesystem::exists(phone.root() / "var/run/control.socket"));
}

TEST(LivePhoneProcess, CanBeTerminatedDuringAWaitingCommand) {
  LivePhone phone;
  const auto socket = foundation::connectIn(phone.root() / "var/run", process::controlSocket);
  ASSERT_TRUE(foundation::sendAll(socket, "{\"do\":\"wait\",\"seconds\":600}\n"));
  phone.execute({{"do", "log"}});
  kill(phone.process().process(), SIGTERM);
  EXPECT_TRUE(test::becomesTrue([&] { return phone.process().hasEnded(); }));
}

TEST(LivePhoneProcess, CanStartAgainAfterItWasKilled) {
  LivePhone phone;
  phone.process().kill();
  ASSERT_TRUE(test::becomesTrue([&] { return phone.process().hasEnded(); }));
  phone.restart();
  EXPECT_EQ(phone.execute({{"do", "wait"}, {"seconds", 0}}), Json({{"ok", true}}));
}

TEST(LivePhoneProcess, PreventsOtherHomeScreensFromUsingItsRoot) {
  const LivePhone phone;
  for (const char* options : {"--live", "--script in"}) {
    const Outcome outcome =
        test::runIn(phone.folder(), std::string(SPRINGBOARD) + " --root root " + options, "{\"do\":\"log\"}\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors, HasSubstr("a phone is already running on "));
    EXPECT_EQ(outcome.output, "");
  }
  const Outcome received =
      test::runIn(phone.folder(), std::string(MESSAGES) + " --root root --receive +491701234567 Hello --from Anna");
  EXPECT_EQ(received.status, 0) << received.errors;
  EXPECT_TRUE(test::becomesTrue([&] { return phone.titles() == std::vector<std::string>{"Anna"}; }));
}

TEST(LivePhoneProcess, DismissesABannerInRealTime) {
  const LivePhone phone;
  phone.execute({{"do", "set"}, {"key", "timeToDismiss"}, {"value", 1}});
  phone.execute(anna);
  EXPECT_EQ(phone.execute({{"do", "state"}, {"controller", 1}})["dismissed"], false);
  EXPECT_TRUE(test::becomesTrue([&] {
    return phone.execute({{"do", "state"}, {"controller", 1}})["dismissed"] == true;
  }));
}

TEST(LivePhoneProcess, AwaitsAnEventInRealTime) {
  const LivePhone phone;
  control::PhoneConnection connection = phone.connect();
  std::thread sender([&] {
    test::runIn(phone.folder(), std::string(MESSAGES) + " --root root --receive +491701234567 Hello --from Anna");
  });
  const Json answer = connection.execute({{"do", "await"}, {"for", "banner"}});
  sender.join();
  EXPECT_EQ(answer, Json({{"ok", true}}));
}

TEST(LivePhoneOptions, CannotBeCombinedWithOptionsForScripts) {
  const test::TemporaryFolder folder;
  for (const char* option : {"--script in", "--demonstration pictures", "--time 2026-01-01T09:41"}) {
    const Outcome outcome = test::runIn(folder.path(), std::string(SPRINGBOARD) + " --live --root root " + option);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors, HasSubstr("--live cannot be combined with"));
  }
}

TEST(ControlServer, ExecutesOtherClientsCommandsWhileOneWaits) {
  const LivePhone phone;
  const auto waiting = foundation::connectIn(phone.root() / "var/run", process::controlSocket);
  ASSERT_TRUE(foundation::sendAll(waiting, "{\"do\":\"wait\",\"seconds\":600}\n"));
  EXPECT_EQ(phone.execute(anna)["ok"], true);
  EXPECT_THAT(phone.titles(), ElementsAre("Anna"));
}

TEST(ControlServer, ExecutesOneClientsCommandsInOrder) {
  const LivePhone phone;
  control::PhoneConnection connection = phone.connect();
  EXPECT_EQ(connection.executeLine("{\"do\":\"wait\",\"seconds\":0.05}\n{\"do\":\"log\"}"), "{\"ok\":true}");
  EXPECT_EQ(connection.executeLine("{\"do\":\"nothing\"}").substr(0, 12), "{\"ok\":true,\"");
  EXPECT_THAT(connection.executeLine(""), HasSubstr("unknown command"));
}

TEST(ControlServer, ContinuesAfterAClientThatDoesNotReadItsAnswer) {
  const LivePhone phone;
  for (int count = 0; count < 20; ++count)
    EXPECT_TRUE(foundation::sendAll(foundation::connectIn(phone.root() / "var/run", process::controlSocket),
                                    "{\"do\":\"hooks\"}\n{\"do\":\"hooks\"}\n"));
  EXPECT_EQ(phone.execute({{"do", "wait"}, {"seconds", 0}}), Json({{"ok", true}}));
}

TEST(ControlServer, ExecutesALastLineWithoutALineFeed) {
  const LivePhone phone;
  {
    const auto socket = foundation::connectIn(phone.root() / "var/run", process::controlSocket);
    ASSERT_TRUE(foundation::sendAll(socket, anna.dump()));
  }
  EXPECT_TRUE(test::becomesTrue([&] { return phone.titles() == std::vector<std::string>{"Anna"}; }));
}

TEST(ControlServer, RejectsMoreThan128Clients) {
  constexpr int maxClients = 128;
  const LivePhone phone;
  std::vector<control::PhoneConnection> clients;
  clients.reserve(maxClients);
  for (int count = 0; count < maxClients; ++count) clients.push_back(phone.connect());
  // The answer shows that the phone has accepted the last connection and all earlier ones.
  EXPECT_EQ(clients.back().executeLine("{\"do\":\"wait\",\"seconds\":0}"), "{\"ok\":true}");
  EXPECT_THAT(phone.connect().executeLine("{\"do\":\"log\"}"), HasSubstr("more than 128 clients are connected"));
  clients.clear();
  EXPECT_TRUE(test::becomesTrue([&] { return phone.execute({{"do", "wait"}, {"seconds", 0}})["ok"] == true; }));
}

TEST(ControlServer, RejectsALineOfExcessiveSize) {
  const LivePhone phone;
  control::PhoneConnection connection = phone.connect();
  const Json answer = Json::parse(connection.executeLine(std::string(process::maxControlLineBytes + 1, ' ')));
  EXPECT_THAT(answer["error"], HasSubstr("at most 16777216 bytes"));
  EXPECT_THROW(connection.execute({{"do", "log"}}), control::ConnectionError);
  EXPECT_EQ(phone.execute({{"do", "wait"}, {"seconds", 0}}), Json({{"ok", true}}));
}

}  // namespace
