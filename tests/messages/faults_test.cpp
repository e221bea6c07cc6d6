// What can go wrong between a banner and the store: processes that end, a store that cannot be written.
#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <numeric>

#include "tests/messages/captured_errors.hpp"
#include "tests/messages/child_process.hpp"
#include "tests/messages/disk.hpp"
#include "tests/messages/two_processes.hpp"

namespace {

namespace fs = std::filesystem;
using test::annasAddress;
using test::annasChat;
using test::CapturedErrors;
using test::ChildProcess;
using test::Disk;
using test::TwoProcesses;

using Texts = std::vector<std::string>;

void postReply(const TwoProcesses& both, const std::string& text) {
  both.postReply({{"identifier", annasAddress}, {"body", text}, {"brimIdentifier", text}});
}

bool isSound(const fs::path& store) {
  sqlite3* database = nullptr;
  sqlite3_open(store.c_str(), &database);
  std::string answer;
  sqlite3_exec(
      database, "PRAGMA integrity_check",
      [](void* text, int, char** columns, char**) {
        *static_cast<std::string*>(text) = columns[0];
        return 0;
      },
      &answer, nullptr);
  sqlite3_close(database);
  return answer == "ok";
}

TEST(MessagesKilled, BeforeAReplyIsLaunchedAgain) {
  TwoProcesses both;
  ASSERT_TRUE(both.launch());
  both.killApp();
  both.reply("At one!");
  ASSERT_TRUE(both.waitFor("message", 1));
  EXPECT_EQ(both.sent(), Texts{"At one!"});
}

TEST(MessagesKilled, WithARequestUnreadLosesThatAlone) {
  TwoProcesses both;
  ASSERT_TRUE(both.launch());
  kill(both.app(), SIGSTOP);
  postReply(both, "lost");
  both.killApp();
  both.reply("At one!");
  ASSERT_TRUE(both.waitFor("message", 1));
  EXPECT_EQ(both.sent(), Texts{"At one!"});
}

TEST(MessagesKilled, AmongManyRequestsLeavesASoundStoreWithTheFirstOfThem) {
  TwoProcesses both;
  ASSERT_TRUE(both.launch());
  Texts all;
  for (int number = 0; number < 200; ++number) {
    all.push_back("message " + std::to_string(number));
    postReply(both, all.back());
  }
  ASSERT_TRUE(both.waitFor("message", 5));
  both.killApp();
  EXPECT_TRUE(isSound(both.storePath()));
  const Texts stored = both.sent();
  ASSERT_GE(stored.size(), 5U);
  ASSERT_LE(stored.size(), all.size());
  EXPECT_TRUE(std::equal(stored.begin(), stored.end(), all.begin()));
  both.reply("after");
  EXPECT_TRUE(test::eventually([&] { return both.sent().back() == "after"; }));
}

TEST(MessagesKilled, AfterAReplyHasItInTheStore) {
  TwoProcesses both;
  both.reply("At one!");
  ASSERT_TRUE(both.waitFor("message", 1));
  both.killApp();
  EXPECT_EQ(both.sent(), Texts{"At one!"});
  both.phone.wait(2);
  both.reply("Or two?");
  ASSERT_TRUE(both.waitFor("message", 2));
  EXPECT_EQ(both.sent(), (Texts{"At one!", "Or two?"}));
}

// A request that is posted to a stopped process waits for it; the home screen does not.
TEST(MessagesStopped, HearsWhatWasPostedMeanwhileWhenItGoesOn) {
  const CapturedErrors errors;
  TwoProcesses both;
  ASSERT_TRUE(both.launch());
  const pid_t app = both.app();
  kill(app, SIGSTOP);
  const int controller = both.reply("At one!");
  both.phone.wait(2);
  EXPECT_TRUE(both.phone.state(controller).at("dismissed"));
  EXPECT_EQ(errors.text(), "");
  kill(app, SIGCONT);
  ASSERT_TRUE(both.waitFor("message", 1));
  EXPECT_EQ(both.sent(), Texts{"At one!"});
}

TEST(MessagesStopped, BeforeItHasAnsweredDoesNotStopTheHomeScreen) {
  const CapturedErrors errors;
  TwoProcesses both;
  ChildProcess app({MESSAGES, "--root", both.phone.root()});
  ASSERT_TRUE(test::eventually([&] { return test::hearsRequests(both.phone.root()); }));
  kill(app.process(), SIGSTOP);
  const int controller = both.reply("At one!");
  both.phone.wait(2);
  EXPECT_TRUE(both.phone.state(controller).at("dismissed"));
  EXPECT_TRUE(errors.contain("not ready")) << errors.text();
  kill(app.process(), SIGCONT);
  // It may hear the request before it has met the home screen, which then is not told.
  EXPECT_TRUE(test::eventually([&] { return both.sent() == Texts{"At one!"}; }));
}

TEST(NotificationDaemonKilled, BetweenRepliesIsReplaced) {
  TwoProcesses both;
  both.reply("One");
  ASSERT_TRUE(both.waitFor("message", 1));
  std::ifstream file(fs::path(std::getenv("TEMP")) / "NSMessagePort/names/R0ROQ1NlcnZlcg==");
  std::string port;
  pid_t daemon = 0;
  std::getline(file, port);
  ASSERT_TRUE(file >> daemon);
  kill(daemon, SIGKILL);
  ASSERT_TRUE(test::eventually([daemon] { return !test::isRunning(daemon); }));
  both.phone.wait(2);
  both.reply("Two");
  ASSERT_TRUE(both.waitFor("message", 2));
  EXPECT_EQ(both.sent(), (Texts{"One", "Two"}));
}

class Lock {
 public:
  explicit Lock(const fs::path& store) {
    sqlite3_open(store.c_str(), &database);
    EXPECT_EQ(sqlite3_exec(database, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  }
  ~Lock() { sqlite3_close(database); }

 private:
  sqlite3* database = nullptr;
};

TEST(MessagesStore, HeldByAnotherProcessForLongDropsTheReplyAndSaysSo) {
  const CapturedErrors errors;
  TwoProcesses both;
  ASSERT_TRUE(both.launch());
  {
    const Lock lock(both.storePath());
    postReply(both, "lost");
    EXPECT_TRUE(test::eventually([&] { return errors.contain("another process has locked it"); })) << errors.text();
  }
  ASSERT_TRUE(both.fence());
  EXPECT_TRUE(both.sent().empty());
}

TEST(MessagesStore, ThatIsFullDropsTheReplyAndSaysSo) {
  const CapturedErrors errors;
  TwoProcesses both;
  Disk disk(messages::messagesFolder(both.phone.root()));
  if (!disk.isMounted()) GTEST_SKIP() << "this machine lets nobody mount a disk";
  both.receive(annasChat, "Lunch?");
  ASSERT_TRUE(both.launch());
  disk.fill();
  postReply(both, "lost");
  EXPECT_TRUE(test::eventually([&] { return errors.contain("the disk is full"); })) << errors.text();
  disk.makeRoom();
  ASSERT_TRUE(both.fence());
  EXPECT_TRUE(both.sent().empty());
  EXPECT_TRUE(isSound(both.storePath()));
}

TEST(MessagesStore, OnAReadOnlyDiskKeepsTheAppFromStarting) {
  const CapturedErrors errors;
  TwoProcesses both;
  Disk disk(messages::messagesFolder(both.phone.root()));
  if (!disk.isMounted()) GTEST_SKIP() << "this machine lets nobody mount a disk";
  both.receive(annasChat, "Lunch?");
  disk.makeReadOnly();
  const int controller = both.reply("lost");
  both.phone.wait(2);
  EXPECT_TRUE(both.phone.state(controller).at("dismissed"));
  EXPECT_TRUE(errors.contain("Read-only")) << errors.text();
  EXPECT_EQ(both.app(), 0);
}

void damage(const fs::path& file) {
  std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
  const std::string garbage(fs::file_size(file), '\x5a');
  stream.write(garbage.data(), static_cast<std::streamsize>(garbage.size()));
}

TEST(MessagesStore, ThatIsDamagedKeepsTheAppFromStartingUntilItIsMovedAway) {
  const CapturedErrors errors;
  TwoProcesses both;
  damage(both.storePath());
  const int controller = both.reply("lost");
  both.phone.wait(2);
  EXPECT_TRUE(both.phone.state(controller).at("dismissed"));
  EXPECT_TRUE(errors.contain("it is damaged: move it away")) << errors.text();
  EXPECT_EQ(errors.text().find("damaged"), errors.text().rfind("damaged")) << "it is started once: " << errors.text();
  fs::remove(both.storePath());
  both.receive(annasChat, "Lunch?");
  both.reply("At one!");
  ASSERT_TRUE(both.waitFor("message", 1));
  EXPECT_EQ(both.sent(), Texts{"At one!"});
}

TEST(MessagesStore, DamagedWhileTheAppRunsIsToldAndLeavesTheAppGoing) {
  const CapturedErrors errors;
  TwoProcesses both;
  ASSERT_TRUE(both.launch());
  const pid_t app = both.app();
  damage(both.storePath());
  postReply(both, "lost");
  EXPECT_TRUE(test::eventually([&] { return errors.contain("messages: "); }));
  EXPECT_TRUE(both.launch());
  EXPECT_EQ(both.app(), app);
}

TEST(MessagesStore, OfALaterVersionIsLeftAlone) {
  const CapturedErrors errors;
  TwoProcesses both;
  sqlite3* database = nullptr;
  sqlite3_open(both.storePath().c_str(), &database);
  sqlite3_exec(database, "PRAGMA user_version = 99", nullptr, nullptr, nullptr);
  sqlite3_close(database);
  EXPECT_FALSE(both.launch());
  EXPECT_TRUE(errors.contain("has version 99; this program supports version 1")) << errors.text();
}

}  // namespace
