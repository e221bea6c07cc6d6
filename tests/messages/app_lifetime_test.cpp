// Tests of how the Messages app starts and ends together with the home screens that launch it.
#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <fstream>
#include <memory>

#include "tests/messages/home_screen_and_messages.hpp"
#include "tests/support/child_process.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

namespace fs = std::filesystem;
using test::annasAddress;
using test::annasChat;
using test::ChildProcess;
using test::eventually;
using test::HomeScreenAndMessages;

using Texts = std::vector<std::string>;

pid_t appProcessOf(const fs::path& root) {
  std::ifstream file(messages::messagesFolder(root) / "messages.lock");
  pid_t process = 0;
  file >> process;
  return process > 0 && test::isRunning(process) ? process : 0;
}

Texts sentIn(const fs::path& root) {
  Texts texts;
  const messages::ChatStore store(root);
  for (const messages::Chat& chat : store.chats())
    for (const messages::Message& message : store.messagesOf(chat))
      if (message.direction == messages::Direction::Sent) texts.push_back(message.text);
  return texts;
}

void receive(const fs::path& root) {
  messages::ChatStore(root).addTo(annasChat, "Anna", {messages::Direction::Received, "Lunch?", 0, 0, false});
}

// Script commands that present a banner and reply to it.
std::string replyCommands(const std::string& text) {
  return std::string(
             R"({"do":"present","section":"com.apple.MobileSMS","title":"Anna","message":"Lunch?","thread":")") +
         annasAddress + "\"}\n" + R"({"do":"wait","seconds":1})" + "\n" + R"({"do":"drag","by":[0,200]})" + "\n" +
         R"({"do":"wait","seconds":0.5})" + "\n" + R"({"do":"type","text":")" + text + "\"}\n" +
         R"({"do":"key","name":"return"})" + "\n";
}

// A home screen in its own process.
class HomeScreen : public ChildProcess {
 public:
  explicit HomeScreen(const fs::path& root) : ChildProcess({SPRINGBOARD, "--root", root, "--script", "-"}) {}
};

class MessagesProcess : public testing::Test {
 protected:
  MessagesProcess() { receive(root); }

  test::TemporaryFolder folder;
  const fs::path root = folder.path() / "root";
};

TEST_F(MessagesProcess, EndsWithTheHomeScreen) {
  HomeScreen home(root);
  home.write(replyCommands("At one!"));
  ASSERT_TRUE(eventually([&] { return sentIn(root) == Texts{"At one!"}; }));
  const pid_t app = appProcessOf(root);
  ASSERT_GT(app, 0);
  home.closeInput();
  EXPECT_TRUE(eventually([&] { return home.hasEnded(); }));
  EXPECT_TRUE(home.hasSucceeded());
  EXPECT_TRUE(eventually([app] { return !test::isRunning(app); }));
}

TEST_F(MessagesProcess, HasEndedOnceItsHomeScreenIsDestroyed) {
  pid_t app = 0;
  {
    HomeScreenAndMessages both;
    ASSERT_TRUE(both.launch());
    app = both.appProcess();
  }
  EXPECT_GT(app, 0);
  EXPECT_FALSE(test::isRunning(app));
}

TEST_F(MessagesProcess, DoesNotModifyItsHomeScreensRoot) {
  HomeScreen home(root);
  home.write(R"({"do":"log"}
)");
  const fs::path bundle = root / "Library/Application Support/Brim/Assets.bundle";
  ASSERT_TRUE(eventually([&] { return fs::exists(bundle / "endpoints.plist"); }));
  fs::remove_all(bundle);
  fs::create_symlink(root, bundle);
  home.write(replyCommands("At one!"));
  ASSERT_TRUE(eventually([&] { return sentIn(root) == Texts{"At one!"}; }));
  EXPECT_EQ(fs::read_symlink(bundle), root);
}

TEST_F(MessagesProcess, EndsWhenTheHomeScreenIsKilled) {
  HomeScreen home(root);
  home.write(replyCommands("At one!"));
  ASSERT_TRUE(eventually([&] { return sentIn(root) == Texts{"At one!"}; }));
  const pid_t app = appProcessOf(root);
  ASSERT_GT(app, 0);
  home.kill();
  EXPECT_TRUE(eventually([app] { return !test::isRunning(app); }));
}

TEST_F(MessagesProcess, OnlyOneRunsIfSeveralAreStartedAtOnce) {
  std::vector<std::unique_ptr<ChildProcess>> apps;
  apps.resize(5);
  for (auto& app : apps) app = std::make_unique<ChildProcess>(Texts{MESSAGES, "--suspended", "--root", root});
  const auto count = [&](const auto& predicate) { return std::ranges::count_if(apps, predicate); };
  ASSERT_TRUE(eventually([&] { return count([](const auto& app) { return app->hasEnded(); }) == 4; }));
  EXPECT_EQ(count([](const auto& app) { return app->hasSucceeded(); }), 4);
  const pid_t running = appProcessOf(root);
  EXPECT_EQ(count([running](const auto& app) { return app->process() == running; }), 1);
  for (const auto& app : apps) app->closeInput();
  EXPECT_TRUE(eventually([&] { return count([](const auto& app) { return app->hasSucceeded(); }) == 5; }));
}

TEST_F(MessagesProcess, FailsIfStartedManuallyWhileAnotherIsRunning) {
  ChildProcess first({MESSAGES, "--root", root});
  ASSERT_TRUE(eventually([&] { return appProcessOf(root) == first.process(); }));
  ChildProcess second({MESSAGES, "--root", root});
  EXPECT_TRUE(eventually([&] { return second.hasEnded(); }));
  EXPECT_FALSE(second.hasSucceeded());
  EXPECT_FALSE(first.hasEnded());
}

TEST_F(MessagesProcess, ExitsOnATerminationSignalIfStartedManually) {
  ChildProcess app({MESSAGES, "--root", root});
  ASSERT_TRUE(eventually([this] { return test::isReadyForRequests(root); }));
  kill(app.process(), SIGTERM);
  EXPECT_TRUE(eventually([&] { return app.hasEnded(); }));
  EXPECT_TRUE(app.hasSucceeded());
}

TEST_F(MessagesProcess, ReplacesAKilledAppIfStartedManually) {
  ChildProcess first({MESSAGES, "--root", root});
  ASSERT_TRUE(eventually([this] { return test::isReadyForRequests(root); }));
  first.kill();
  ASSERT_TRUE(eventually([&] { return first.hasEnded(); }));
  ChildProcess second({MESSAGES, "--root", root});
  EXPECT_TRUE(eventually([this] { return test::isReadyForRequests(root); }));
  EXPECT_EQ(appProcessOf(root), second.process());
}

TEST_F(MessagesProcess, ServesTwoHomeScreensOfOneRoot) {
  HomeScreen first(root);
  HomeScreen second(root);
  first.write(replyCommands("first"));
  second.write(replyCommands("second"));
  const auto sorted = [this] {
    Texts texts = sentIn(root);
    std::ranges::sort(texts);
    return texts;
  };
  EXPECT_TRUE(eventually([&] { return sorted() == Texts{"first", "second"}; }));
}

TEST_F(MessagesProcess, KeepsRunningUntilTheLastHomeScreenEnds) {
  HomeScreen ending(root);
  ending.write(replyCommands("one"));
  ASSERT_TRUE(eventually([&] { return sentIn(root).size() == 1; }));
  const pid_t app = appProcessOf(root);
  HomeScreen staying(root);
  staying.write(replyCommands("two"));
  ASSERT_TRUE(eventually([&] { return sentIn(root).size() == 2; }));
  ending.closeInput();
  ASSERT_TRUE(eventually([&] { return ending.hasEnded(); }));
  staying.write(R"({"do":"wait","seconds":3})"
                "\n" +
                replyCommands("three"));
  EXPECT_TRUE(eventually([&] { return sentIn(root) == Texts{"one", "two", "three"}; }));
  EXPECT_EQ(appProcessOf(root), app);
  staying.closeInput();
  EXPECT_TRUE(eventually([app] { return !test::isRunning(app); }));
}

TEST_F(MessagesProcess, ReceivesOnlyRequestsOfItsOwnRoot) {
  HomeScreenAndMessages here;
  HomeScreen there(root);
  there.write(replyCommands("there"));
  here.reply("here");
  ASSERT_TRUE(here.waitForEvents("message", 1));
  ASSERT_TRUE(eventually([&] { return !sentIn(root).empty(); }));
  ASSERT_TRUE(here.waitForPostedRequests());
  EXPECT_EQ(here.sent(), Texts{"here"});
  EXPECT_EQ(sentIn(root), Texts{"there"});
  EXPECT_NE(here.appProcess(), appProcessOf(root));
}

TEST_F(MessagesProcess, IsNotBlockedByAStoppedHomeScreen) {
  HomeScreenAndMessages both;
  both.launch();
  HomeScreen stopped(both.phone.root());
  stopped.write(replyCommands("one"));
  ASSERT_TRUE(eventually([&] { return both.sent().size() == 1; }));
  kill(stopped.process(), SIGSTOP);
  both.postReply({{"identifier", annasAddress}, {"body", std::string(1'000'000, 'x')}, {"brimIdentifier", "a"}});
  EXPECT_TRUE(both.waitForPostedRequests());
  EXPECT_EQ(both.sent().size(), 2U);
  kill(stopped.process(), SIGCONT);
}

}  // namespace
