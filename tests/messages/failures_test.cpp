// Tests of failures between a banner and the store: killed and stopped processes, and a store that cannot be opened or
// written.
#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <numeric>

#include "tests/messages/captured_errors.hpp"
#include "tests/messages/home_screen_and_messages.hpp"
#include "tests/messages/mounted_disk.hpp"
#include "tests/support/child_process.hpp"

namespace {

namespace fs = std::filesystem;
using test::annasAddress;
using test::annasChat;
using test::CapturedErrors;
using test::ChildProcess;
using test::HomeScreenAndMessages;
using test::MountedDisk;

using Texts = std::vector<std::string>;

void postReply(const HomeScreenAndMessages& both, const std::string& text) {
  both.postReply({{"identifier", annasAddress}, {"body", text}, {"brimIdentifier", text}});
}

bool isIntact(const fs::path& store) {
  sqlite3* database = nullptr;
  sqlite3_open(store.c_str(), &database);
  std::string result;
  sqlite3_exec(
      database, "PRAGMA integrity_check",
      [](void* text, int, char** columns, char**) {
        *static_cast<std::string*>(text) = columns[0];
        return 0;
      },
      &result, nullptr);
  sqlite3_close(database);
  return result == "ok";
}

TEST(MessagesKilled, IsRelaunchedForTheNextReply) {
  HomeScreenAndMessages both;
  ASSERT_TRUE(both.launch());
  both.killApp();
  both.reply("At one!");
  ASSERT_TRUE(both.waitForEvents("message", 1));
  EXPECT_EQ(both.sent(), Texts{"At one!"});
}

TEST(MessagesKilled, LosesOnlyItsUnhandledRequest) {
  HomeScreenAndMessages both;
  ASSERT_TRUE(both.launch());
  kill(both.appProcess(), SIGSTOP);
  postReply(both, "lost");
  both.killApp();
  both.reply("At one!");
  ASSERT_TRUE(both.waitForEvents("message", 1));
  EXPECT_EQ(both.sent(), Texts{"At one!"});
}

TEST(MessagesKilled, LeavesAnIntactStoreWithTheFirstOfManyRequests) {
  HomeScreenAndMessages both;
  ASSERT_TRUE(both.launch());
  Texts all;
  for (int number = 0; number < 200; ++number) {
    all.push_back("message " + std::to_string(number));
    postReply(both, all.back());
  }
  ASSERT_TRUE(both.waitForEvents("message", 5));
  both.killApp();
  EXPECT_TRUE(isIntact(both.storePath()));
  const Texts stored = both.sent();
  ASSERT_GE(stored.size(), 5U);
  ASSERT_LE(stored.size(), all.size());
  EXPECT_TRUE(std::equal(stored.begin(), stored.end(), all.begin()));
  both.reply("after");
  EXPECT_TRUE(test::eventually([&] { return both.sent().back() == "after"; }));
}

TEST(MessagesKilled, DoesNotLoseAStoredReply) {
  HomeScreenAndMessages both;
  both.reply("At one!");
  ASSERT_TRUE(both.waitForEvents("message", 1));
  both.killApp();
  EXPECT_EQ(both.sent(), Texts{"At one!"});
  both.phone.wait(2);
  both.reply("Or two?");
  ASSERT_TRUE(both.waitForEvents("message", 2));
  EXPECT_EQ(both.sent(), (Texts{"At one!", "Or two?"}));
}

// A request that is posted to a stopped process is delivered when the process continues. The home screen does not wait
// for that process.
TEST(MessagesStopped, ReceivesPendingRequestsWhenItContinues) {
  const CapturedErrors errors;
  HomeScreenAndMessages both;
  ASSERT_TRUE(both.launch());
  const pid_t app = both.appProcess();
  kill(app, SIGSTOP);
  const int controller = both.reply("At one!");
  both.phone.wait(2);
  EXPECT_TRUE(both.phone.state(controller).at("dismissed"));
  EXPECT_EQ(errors.text(), "");
  kill(app, SIGCONT);
  ASSERT_TRUE(both.waitForEvents("message", 1));
  EXPECT_EQ(both.sent(), Texts{"At one!"});
}

TEST(MessagesStopped, DoesNotBlockAHomeScreenThatWaitsForItsAnswer) {
  const CapturedErrors errors;
  HomeScreenAndMessages both;
  ChildProcess app({MESSAGES, "--root", both.phone.root()});
  ASSERT_TRUE(test::eventually([&] { return test::isReadyForRequests(both.phone.root()); }));
  kill(app.process(), SIGSTOP);
  const int controller = both.reply("At one!");
  both.phone.wait(2);
  EXPECT_TRUE(both.phone.state(controller).at("dismissed"));
  EXPECT_TRUE(errors.contains("does not accept requests")) << errors.text();
  kill(app.process(), SIGCONT);
  // The app can receive the request before the home screen connects to the app. Then the app reports no event to the
  // home screen, so the test reads the store instead.
  EXPECT_TRUE(test::eventually([&] { return both.sent() == Texts{"At one!"}; }));
}

TEST(NotificationDaemonKilled, IsRestartedForTheNextReply) {
  HomeScreenAndMessages both;
  both.reply("One");
  ASSERT_TRUE(both.waitForEvents("message", 1));
  std::ifstream file(fs::path(std::getenv("TEMP")) / "NSMessagePort/names/R0ROQ1NlcnZlcg==");
  std::string port;
  pid_t daemon = 0;
  std::getline(file, port);
  ASSERT_TRUE(file >> daemon);
  kill(daemon, SIGKILL);
  ASSERT_TRUE(test::eventually([daemon] { return !test::isRunning(daemon); }));
  both.phone.wait(2);
  both.reply("Two");
  ASSERT_TRUE(both.waitForEvents("message", 2));
  EXPECT_EQ(both.sent(), (Texts{"One", "Two"}));
}

class ExclusiveLock {
 public:
  explicit ExclusiveLock(const fs::path& store) {
    sqlite3_open(store.c_str(), &database_);
    EXPECT_EQ(sqlite3_exec(database_, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  }
  ~ExclusiveLock() { sqlite3_close(database_); }

 private:
  sqlite3* database_ = nullptr;
};

TEST(MessagesStore, DropsTheReplyAndLogsAnErrorIfItStaysLocked) {
  const CapturedErrors errors;
  HomeScreenAndMessages both;
  ASSERT_TRUE(both.launch());
  {
    const ExclusiveLock lock(both.storePath());
    postReply(both, "lost");
    EXPECT_TRUE(test::eventually([&] { return errors.contains("another process has locked it"); })) << errors.text();
  }
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_TRUE(both.sent().empty());
}

TEST(MessagesStore, DropsTheReplyAndLogsAnErrorIfTheDiskIsFull) {
  const CapturedErrors errors;
  HomeScreenAndMessages both;
  MountedDisk disk(messages::messagesFolder(both.phone.root()));
  if (!disk.isMounted()) GTEST_SKIP() << "mounting a disk is not permitted here";
  both.receive(annasChat, "Lunch?");
  ASSERT_TRUE(both.launch());
  disk.fill();
  postReply(both, "lost");
  EXPECT_TRUE(test::eventually([&] { return errors.contains("the disk is full"); })) << errors.text();
  disk.removeFillerFile();
  ASSERT_TRUE(both.waitForPostedRequests());
  EXPECT_TRUE(both.sent().empty());
  EXPECT_TRUE(isIntact(both.storePath()));
}

TEST(MessagesStore, PreventsTheAppFromStartingIfTheDiskIsReadOnly) {
  const CapturedErrors errors;
  HomeScreenAndMessages both;
  MountedDisk disk(messages::messagesFolder(both.phone.root()));
  if (!disk.isMounted()) GTEST_SKIP() << "mounting a disk is not permitted here";
  both.receive(annasChat, "Lunch?");
  disk.makeReadOnly();
  const int controller = both.reply("lost");
  both.phone.wait(2);
  EXPECT_TRUE(both.phone.state(controller).at("dismissed"));
  EXPECT_TRUE(errors.contains("Read-only")) << errors.text();
  EXPECT_EQ(both.appProcess(), 0);
}

void damage(const fs::path& file) {
  std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
  const std::string garbage(fs::file_size(file), '\x5a');
  stream.write(garbage.data(), static_cast<std::streamsize>(garbage.size()));
}

TEST(MessagesStore, PreventsTheAppFromStartingIfItIsDamaged) {
  const CapturedErrors errors;
  HomeScreenAndMessages both;
  damage(both.storePath());
  const int controller = both.reply("lost");
  both.phone.wait(2);
  EXPECT_TRUE(both.phone.state(controller).at("dismissed"));
  EXPECT_TRUE(errors.contains("it is damaged: move it away")) << errors.text();
  EXPECT_EQ(errors.text().find("damaged"), errors.text().rfind("damaged"))
      << "the home screen must start the app only once: " << errors.text();
  fs::remove(both.storePath());
  both.receive(annasChat, "Lunch?");
  both.reply("At one!");
  ASSERT_TRUE(both.waitForEvents("message", 1));
  EXPECT_EQ(both.sent(), Texts{"At one!"});
}

TEST(MessagesStore, DamageIsLoggedAndDoesNotEndTheRunningApp) {
  const CapturedErrors errors;
  HomeScreenAndMessages both;
  ASSERT_TRUE(both.launch());
  const pid_t app = both.appProcess();
  damage(both.storePath());
  postReply(both, "lost");
  EXPECT_TRUE(test::eventually([&] { return errors.contains("messages: "); }));
  EXPECT_TRUE(both.launch());
  EXPECT_EQ(both.appProcess(), app);
}

TEST(MessagesStore, IsNotOpenedIfItHasALaterVersion) {
  const CapturedErrors errors;
  HomeScreenAndMessages both;
  sqlite3* database = nullptr;
  sqlite3_open(both.storePath().c_str(), &database);
  sqlite3_exec(database, "PRAGMA user_version = 99", nullptr, nullptr, nullptr);
  sqlite3_close(database);
  EXPECT_FALSE(both.launch());
  EXPECT_TRUE(errors.contains("has version 99; this program supports version 1")) << errors.text();
}

}  // namespace
