// How the Messages app begins and ends beside the home screens that launch it.
#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <fstream>
#include <memory>

#include "tests/messages/child_process.hpp"
#include "tests/messages/two_processes.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

namespace fs = std::filesystem;
using test::annasAddress;
using test::annasChat;
using test::ChildProcess;
using test::eventually;
using test::TwoProcesses;

using Texts = std::vector<std::string>;

pid_t appOf(const fs::path& root) {
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

// The commands that answer a banner.
std::string replying(const std::string& text) {
  return std::string(
             R"({"do":"present","section":"com.apple.MobileSMS","title":"Anna","message":"Lunch?","thread":")") +
         annasAddress + "\"}\n" + R"({"do":"wait","seconds":1})" + "\n" + R"({"do":"drag","by":[0,200]})" + "\n" +
         R"({"do":"wait","seconds":0.5})" + "\n" + R"({"do":"type","text":")" + text + "\"}\n" +
         R"({"do":"key","name":"return"})" + "\n";
}

// A home screen in a process of its own.
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
  home.write(replying("At one!"));
  ASSERT_TRUE(eventually([&] { return sentIn(root) == Texts{"At one!"}; }));
  const pid_t app = appOf(root);
  ASSERT_GT(app, 0);
  home.closeInput();
  EXPECT_TRUE(eventually([&] { return home.hasEnded(); }));
  EXPECT_TRUE(home.hasSucceeded());
  EXPECT_TRUE(eventually([app] { return !test::isRunning(app); }));
}

TEST_F(MessagesProcess, HasEndedWhenItsHomeScreenHas) {
  pid_t app = 0;
  {
    TwoProcesses both;
    ASSERT_TRUE(both.launch());
    app = both.app();
  }
  EXPECT_GT(app, 0);
  EXPECT_FALSE(test::isRunning(app));
}

TEST_F(MessagesProcess, TakesTheRootAsItsHomeScreenHasIt) {
  HomeScreen home(root);
  home.write(R"({"do":"log"}
)");
  const fs::path bundle = root / "Library/Application Support/Brim/Assets.bundle";
  ASSERT_TRUE(eventually([&] { return fs::exists(bundle / "endpoints.plist"); }));
  fs::remove_all(bundle);
  fs::create_symlink(root, bundle);
  home.write(replying("At one!"));
  ASSERT_TRUE(eventually([&] { return sentIn(root) == Texts{"At one!"}; }));
  EXPECT_EQ(fs::read_symlink(bundle), root);
}

TEST_F(MessagesProcess, EndsWhenTheHomeScreenIsKilled) {
  HomeScreen home(root);
  home.write(replying("At one!"));
  ASSERT_TRUE(eventually([&] { return sentIn(root) == Texts{"At one!"}; }));
  const pid_t app = appOf(root);
  ASSERT_GT(app, 0);
  home.kill();
  EXPECT_TRUE(eventually([app] { return !test::isRunning(app); }));
}

TEST_F(MessagesProcess, OfManyStartedAtOnceIsOne) {
  std::vector<std::unique_ptr<ChildProcess>> apps;
  apps.resize(5);
  for (auto& app : apps) app = std::make_unique<ChildProcess>(Texts{MESSAGES, "--suspended", "--root", root});
  const auto count = [&](const auto& predicate) { return std::ranges::count_if(apps, predicate); };
  ASSERT_TRUE(eventually([&] { return count([](const auto& app) { return app->hasEnded(); }) == 4; }));
  EXPECT_EQ(count([](const auto& app) { return app->hasSucceeded(); }), 4);
  const pid_t alone = appOf(root);
  EXPECT_EQ(count([alone](const auto& app) { return app->process() == alone; }), 1);
  for (const auto& app : apps) app->closeInput();
  EXPECT_TRUE(eventually([&] { return count([](const auto& app) { return app->hasSucceeded(); }) == 5; }));
}

TEST_F(MessagesProcess, StartedByHandBesideAnotherSaysSo) {
  ChildProcess first({MESSAGES, "--root", root});
  ASSERT_TRUE(eventually([&] { return appOf(root) == first.process(); }));
  ChildProcess second({MESSAGES, "--root", root});
  EXPECT_TRUE(eventually([&] { return second.hasEnded(); }));
  EXPECT_FALSE(second.hasSucceeded());
  EXPECT_FALSE(first.hasEnded());
}

TEST_F(MessagesProcess, StartedByHandEndsWhenItIsTold) {
  ChildProcess app({MESSAGES, "--root", root});
  ASSERT_TRUE(eventually([this] { return test::hearsRequests(root); }));
  kill(app.process(), SIGTERM);
  EXPECT_TRUE(eventually([&] { return app.hasEnded(); }));
  EXPECT_TRUE(app.hasSucceeded());
}

TEST_F(MessagesProcess, StartedByHandAndKilledLeavesItsPlaceToTheNext) {
  ChildProcess first({MESSAGES, "--root", root});
  ASSERT_TRUE(eventually([this] { return test::hearsRequests(root); }));
  first.kill();
  ASSERT_TRUE(eventually([&] { return first.hasEnded(); }));
  ChildProcess second({MESSAGES, "--root", root});
  EXPECT_TRUE(eventually([this] { return test::hearsRequests(root); }));
  EXPECT_EQ(appOf(root), second.process());
}

TEST_F(MessagesProcess, ServesTwoHomeScreensOfOneRoot) {
  HomeScreen first(root);
  HomeScreen second(root);
  first.write(replying("first"));
  second.write(replying("second"));
  const auto sorted = [this] {
    Texts texts = sentIn(root);
    std::ranges::sort(texts);
    return texts;
  };
  EXPECT_TRUE(eventually([&] { return sorted() == Texts{"first", "second"}; }));
}

TEST_F(MessagesProcess, GoesOnForTheHomeScreenThatStays) {
  HomeScreen starting(root);
  starting.write(replying("one"));
  ASSERT_TRUE(eventually([&] { return sentIn(root).size() == 1; }));
  const pid_t app = appOf(root);
  HomeScreen staying(root);
  staying.write(replying("two"));
  ASSERT_TRUE(eventually([&] { return sentIn(root).size() == 2; }));
  starting.closeInput();
  ASSERT_TRUE(eventually([&] { return starting.hasEnded(); }));
  staying.write(R"({"do":"wait","seconds":3})"
                "\n" +
                replying("three"));
  EXPECT_TRUE(eventually([&] { return sentIn(root) == Texts{"one", "two", "three"}; }));
  EXPECT_EQ(appOf(root), app);
  staying.closeInput();
  EXPECT_TRUE(eventually([app] { return !test::isRunning(app); }));
}

TEST_F(MessagesProcess, OfAnotherRootHearsNothing) {
  TwoProcesses here;
  HomeScreen there(root);
  there.write(replying("there"));
  here.reply("here");
  ASSERT_TRUE(here.waitFor("message", 1));
  ASSERT_TRUE(eventually([&] { return !sentIn(root).empty(); }));
  ASSERT_TRUE(here.fence());
  EXPECT_EQ(here.sent(), Texts{"here"});
  EXPECT_EQ(sentIn(root), Texts{"there"});
  EXPECT_NE(here.app(), appOf(root));
}

TEST_F(MessagesProcess, GoesOnBesideAHomeScreenThatDoesNotRead) {
  TwoProcesses both;
  both.launch();
  HomeScreen stopped(both.phone.root());
  stopped.write(replying("one"));
  ASSERT_TRUE(eventually([&] { return both.sent().size() == 1; }));
  kill(stopped.process(), SIGSTOP);
  both.postReply({{"identifier", annasAddress}, {"body", std::string(1'000'000, 'x')}, {"brimIdentifier", "a"}});
  EXPECT_TRUE(both.fence());
  EXPECT_EQ(both.sent().size(), 2U);
  kill(stopped.process(), SIGCONT);
}

}  // namespace
