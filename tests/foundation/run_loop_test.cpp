#include "simulator/foundation/run_loop.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "objc/class_definition.hpp"
#include "platform/ns_notification_center.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "tests/objc/runtime_environment.hpp"

class TestListener : public objc::Interface<"BrimTestListener", NSObject> {};

namespace {

class RunLoop : public RuntimeTest {
 protected:
  RunLoop() {
    foundation::useClock(foundation::ClockMode::Stepped, 0);
    if (pipe(ends.data()) != 0) ADD_FAILURE() << "no pipe";
  }
  ~RunLoop() override {
    foundation::unwatchDescriptor(ends[0]);
    for (const int end : ends) close(end);
  }

  void sendLetter() const { EXPECT_EQ(write(ends[1], "x", 1), 1); }
  void watchLetters() {
    foundation::watchDescriptor(ends[0], [this] {
      char letter = 0;
      EXPECT_EQ(read(ends[0], &letter, 1), 1);
      ++received;
    });
  }

  std::array<int, 2> ends = {-1, -1};
  int received = 0;
};

TEST_F(RunLoop, TellsOfReadableDescriptors) {
  watchLetters();
  foundation::pumpFoundation();
  EXPECT_EQ(received, 0);
  sendLetter();
  foundation::pumpFoundation();
  EXPECT_EQ(received, 1);
}

TEST_F(RunLoop, ForgetsUnwatchedDescriptors) {
  watchLetters();
  foundation::unwatchDescriptor(ends[0]);
  sendLetter();
  foundation::pumpFoundation();
  EXPECT_EQ(received, 0);
}

TEST_F(RunLoop, ADescriptorMayBeUnwatchedFromItsOwnCallback) {
  foundation::watchDescriptor(ends[0], [this] {
    foundation::unwatchDescriptor(ends[0]);
    ++received;
  });
  sendLetter();
  foundation::pumpFoundation();
  foundation::pumpFoundation();
  EXPECT_EQ(received, 1);
}

TEST_F(RunLoop, WaitsForAtMostTheGivenTime) {
  foundation::pumpFoundation();
  const auto start = std::chrono::steady_clock::now();
  foundation::pumpFoundation(0.05);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(50));
}

TEST_F(RunLoop, AWaitEndsWhenSomethingComes) {
  foundation::pumpFoundation();
  watchLetters();
  std::thread sender([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    sendLetter();
  });
  const auto start = std::chrono::steady_clock::now();
  foundation::pumpFoundation(30);
  sender.join();
  EXPECT_EQ(received, 1);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST_F(RunLoop, TheRealClockWatchesDescriptorsToo) {
  foundation::useClock(foundation::ClockMode::Real, 0);
  watchLetters();
  std::thread sender([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    sendLetter();
  });
  foundation::runMainQueueUntil([this] { return received == 1; });
  sender.join();
  EXPECT_EQ(received, 1);
}

std::string heard;

void receive(TestListener*, NSNotification* notification) {
  const auto* const text = objc::as<NSString>(notification->userInfo()->objectForKey("text"_ns));
  heard = text == nullptr ? "nothing" : text->UTF8String();
}

NSNotificationCenter* distributedCenter() {
  return objc::send<NSNotificationCenter*, "defaultCenter">(objc::lookUpClass<"NSDistributedNotificationCenter">());
}

TEST_F(RunLoop, LetsInDistributedNotificationsOfOtherProcesses) {
  static constexpr objc::MethodEntry methods[] = {objc::method<"receive:", &receive>()};
  objc::defineClass<TestListener>(methods);
  const auto listener = objc::make<TestListener>();
  distributedCenter()->addObserver(listener, objc::selector<"receive:">(), "BrimTestDistributed"_ns);
  EXPECT_EQ(std::system(POST_DISTRIBUTED " BrimTestDistributed hello"), 0);
  const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (heard.empty() && std::chrono::steady_clock::now() < limit) foundation::pumpFoundation(0.1);
  distributedCenter()->removeObserver(listener, "BrimTestDistributed"_ns);
  EXPECT_EQ(heard, "hello");
  EXPECT_EQ(foundation::now(), 0) << "a stepped clock does not move by real time";
}

}  // namespace
