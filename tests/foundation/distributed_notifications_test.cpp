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

class Observer : public objc::Interface<"BrimTestDistributedObserver", NSObject> {};

std::vector<std::string>& receivedTexts() {
  static std::vector<std::string> texts;
  return texts;
}

void receive(Observer*, NSNotification* notification) {
  const auto* const text = objc::as<NSString>(notification->userInfo()->objectForKey("text"_ns));
  receivedTexts().emplace_back(text == nullptr ? "nothing" : text->UTF8String());
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
    objc::defineClass<Observer>(methods);
    observer_ = addObserver();
  }

  static objc::Ref<Observer> addObserver() {
    auto observer = objc::make<Observer>();
    center()->addObserver(observer, objc::selector<"receive:">(), name());
    return observer;
  }

  static void waitForNotifications(std::size_t count) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (receivedTexts().size() < count && std::chrono::steady_clock::now() < deadline)
      foundation::pumpRunLoopAndMainQueue(0.1);
  }

  objc::Ref<Observer> observer_;
};

TEST_F(DistributedNotifications, DeallocatedObserverIsSkipped) {
  auto shortLived = addObserver();
  postFromAnotherProcess("both");
  waitForNotifications(2);
  shortLived = nullptr;
  postFromAnotherProcess("one");
  postFromAnotherProcess("last");
  waitForNotifications(4);
  EXPECT_EQ(receivedTexts(), (std::vector<std::string>{"both", "both", "one", "last"}));
}

TEST_F(DistributedNotifications, NothingIsDeliveredDuringAPost) {
  constexpr std::size_t posts = 40;
  for (std::size_t count = 0; count < posts; ++count) {
    const std::size_t before = receivedTexts().size();
    post("one");
    EXPECT_EQ(receivedTexts().size(), before);
  }
  waitForNotifications(posts);
  EXPECT_EQ(receivedTexts().size(), posts);
}

// The process receives some of the notifications during later posts, while it communicates with the daemon, and queues
// them. It receives the last notification in the run loop.
TEST_F(DistributedNotifications, AreDeliveredInPostingOrder) {
  std::vector<std::string> posts;
  for (int number = 1; number <= 9; ++number) {
    posts.push_back(std::to_string(number));
    post(posts.back().c_str());
  }
  for (int round = 0; round < 5; ++round) foundation::pumpRunLoop(0.1);
  waitForNotifications(posts.size());
  EXPECT_EQ(receivedTexts(), posts);
}

TEST_F(DistributedNotifications, RemovedObserverReceivesNothing) {
  const auto removed = addObserver();
  center()->removeObserver(removed, name());
  postFromAnotherProcess("one");
  postFromAnotherProcess("last");
  waitForNotifications(2);
  EXPECT_EQ(receivedTexts(), (std::vector<std::string>{"one", "last"}));
}

TEST_F(DistributedNotifications, ObserversAreRegisteredWithANewDaemon) {
  killDaemon();
  ASSERT_TRUE(foundation::connectToNotificationDaemon());
  postFromAnotherProcess("again");
  waitForNotifications(1);
  EXPECT_EQ(receivedTexts(), (std::vector<std::string>{"again"}));
}

TEST_F(DistributedNotifications, ObserversAreRegisteredWithANewDaemonAfterRepeatedConnections) {
  ASSERT_TRUE(foundation::connectToNotificationDaemon());
  ASSERT_TRUE(foundation::connectToNotificationDaemon());
  killDaemon();
  ASSERT_TRUE(foundation::connectToNotificationDaemon());
  postFromAnotherProcess("again");
  waitForNotifications(1);
  EXPECT_EQ(receivedTexts(), (std::vector<std::string>{"again"}));
}

TEST_F(DistributedNotifications, EndedDaemonIsReplacedAutomatically) {
  const pid_t before = daemonProcess();
  killDaemon();
  for (int tries = 0; tries < 600 && (daemonProcess() == before || daemonProcess() == 0); ++tries)
    foundation::pumpRunLoopAndMainQueue(0.1);
  postFromAnotherProcess("again");
  waitForNotifications(1);
  EXPECT_EQ(receivedTexts(), (std::vector<std::string>{"again"}));
}

TEST_F(DistributedNotifications, PostStartsANewDaemonIfTheFirstOneEnded) {
  killDaemon();
  post("lost");
  EXPECT_GT(daemonProcess(), 0);
  ASSERT_TRUE(foundation::connectToNotificationDaemon());
  post("received");
  waitForNotifications(1);
  EXPECT_EQ(receivedTexts().back(), "received");
}

}  // namespace
