#include "simulator/foundation/distributed_notifications.hpp"

#include <signal.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "objc/class_definition.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

namespace fs = std::filesystem;

class Listener : public objc::Interface<"BrimTestDistributedListener", NSObject> {};

std::vector<std::string>& heard() {
  static std::vector<std::string> texts;
  return texts;
}

void receive(Listener*, NSNotification* notification) {
  const auto* const text = objc::as<NSString>(notification->userInfo()->objectForKey("text"_ns));
  heard().emplace_back(text == nullptr ? "nothing" : text->UTF8String());
}

NSDistributedNotificationCenter* center() { return NSDistributedNotificationCenter::defaultCenter(); }
NSString* name() { return "BrimTestDistributed"_ns; }

void post(const char* text) {
  NSMutableDictionary* const information = NSMutableDictionary::dictionaryWithCapacity(1);
  information->setObject(NSString::stringWithUTF8String(text), "text"_ns);
  center()->post(name(), information);
}

void postFromAnotherProcess(const std::string& text) {
  EXPECT_EQ(std::system((POST_DISTRIBUTED " BrimTestDistributed " + text).c_str()), 0);
}

pid_t daemonProcess() {
  std::ifstream file(fs::path(std::getenv("TEMP")) / "NSMessagePort/names/R0ROQ1NlcnZlcg==");
  std::string port;
  pid_t process = 0;
  std::getline(file, port) && file >> process;
  return process;
}

void killDaemon() {
  const pid_t process = daemonProcess();
  ASSERT_GT(process, 0);
  kill(process, SIGKILL);
  for (int tries = 0; kill(process, 0) == 0 && tries < 1000; ++tries)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

class DistributedNotifications : public RuntimeTest {
 protected:
  void SetUp() override {
    static constexpr objc::MethodEntry methods[] = {objc::method<"receive:", &receive>()};
    objc::defineClass<Listener>(methods);
    listener = listen();
  }

  static objc::Ref<Listener> listen() {
    auto added = objc::make<Listener>();
    center()->addObserver(added, objc::selector<"receive:">(), name());
    return added;
  }

  static void waitFor(std::size_t count) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (heard().size() < count && std::chrono::steady_clock::now() < limit) foundation::letNewsIn(0.1);
  }

  objc::Ref<Listener> listener;
};

TEST_F(DistributedNotifications, AnObserverThatEndedIsLeftOut) {
  auto ended = listen();
  postFromAnotherProcess("both");
  waitFor(2);
  ended = nullptr;
  postFromAnotherProcess("one");
  postFromAnotherProcess("last");
  waitFor(4);
  EXPECT_EQ(heard(), (std::vector<std::string>{"both", "both", "one", "last"}));
}

TEST_F(DistributedNotifications, NobodyIsToldOfAnythingInTheMiddleOfAPost) {
  constexpr std::size_t posts = 40;
  for (std::size_t count = 0; count < posts; ++count) {
    const std::size_t before = heard().size();
    post("one");
    EXPECT_EQ(heard().size(), before);
  }
  waitFor(posts);
  EXPECT_EQ(heard().size(), posts);
}

// Some come while this process speaks to the daemon, and wait; the last comes in the run loop.
TEST_F(DistributedNotifications, AreToldOfInTheOrderOfTheirPosts) {
  std::vector<std::string> posts;
  for (int number = 1; number <= 9; ++number) {
    posts.push_back(std::to_string(number));
    post(posts.back().c_str());
  }
  for (int looks = 0; looks < 5; ++looks) foundation::pumpFoundation(0.1);
  waitFor(posts.size());
  EXPECT_EQ(heard(), posts);
}

TEST_F(DistributedNotifications, ARemovedObserverHearsNothing) {
  const auto removed = listen();
  center()->removeObserver(removed, name());
  postFromAnotherProcess("one");
  postFromAnotherProcess("last");
  waitFor(2);
  EXPECT_EQ(heard(), (std::vector<std::string>{"one", "last"}));
}

TEST_F(DistributedNotifications, AnotherDaemonKnowsTheObserversAgain) {
  killDaemon();
  ASSERT_TRUE(foundation::joinDistributedNotifications());
  postFromAnotherProcess("again");
  waitFor(1);
  EXPECT_EQ(heard(), (std::vector<std::string>{"again"}));
}

TEST_F(DistributedNotifications, AnotherDaemonKnowsTheObserversOfOneThatWasJoined) {
  ASSERT_TRUE(foundation::joinDistributedNotifications());
  ASSERT_TRUE(foundation::joinDistributedNotifications());
  killDaemon();
  ASSERT_TRUE(foundation::joinDistributedNotifications());
  postFromAnotherProcess("again");
  waitFor(1);
  EXPECT_EQ(heard(), (std::vector<std::string>{"again"}));
}

TEST_F(DistributedNotifications, ADaemonThatEndedIsReplacedUnasked) {
  const pid_t before = daemonProcess();
  killDaemon();
  for (int tries = 0; tries < 600 && (daemonProcess() == before || daemonProcess() == 0); ++tries)
    foundation::letNewsIn(0.1);
  postFromAnotherProcess("again");
  waitFor(1);
  EXPECT_EQ(heard(), (std::vector<std::string>{"again"}));
}

TEST_F(DistributedNotifications, APostFindsAnotherDaemonWhereTheFirstEnded) {
  killDaemon();
  post("heard by nobody");
  EXPECT_GT(daemonProcess(), 0);
  ASSERT_TRUE(foundation::joinDistributedNotifications());
  post("heard");
  waitFor(1);
  EXPECT_EQ(heard().back(), "heard");
}

}  // namespace
