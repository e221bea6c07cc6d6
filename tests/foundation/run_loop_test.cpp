#include "simulator/foundation/run_loop.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "objc/class_definition.hpp"
#include "platform/ns_date.hpp"
#include "platform/ns_notification_center.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "tests/objc/runtime_environment.hpp"

class TestObserver : public objc::Interface<"BrimTestObserver", NSObject> {};

namespace {

class RunLoop : public RuntimeTest {
 protected:
  RunLoop() {
    foundation::useClock(foundation::ClockMode::Stepped, 0);
    if (pipe(pipeEnds.data()) != 0) ADD_FAILURE() << "cannot create a pipe";
  }
  ~RunLoop() override {
    foundation::unwatchDescriptor(pipeEnds[0]);
    for (const int descriptor : pipeEnds) close(descriptor);
  }

  void sendByte() const { EXPECT_EQ(write(pipeEnds[1], "x", 1), 1); }
  void watchBytes() {
    foundation::watchDescriptor(pipeEnds[0], [this] {
      char byte = 0;
      EXPECT_EQ(read(pipeEnds[0], &byte, 1), 1);
      ++received;
    });
  }

  std::array<int, 2> pipeEnds = {-1, -1};
  int received = 0;
};

TEST_F(RunLoop, CallsTheWatcherOfAReadableDescriptor) {
  watchBytes();
  foundation::pumpRunLoop();
  EXPECT_EQ(received, 0);
  sendByte();
  foundation::pumpRunLoop();
  EXPECT_EQ(received, 1);
}

TEST_F(RunLoop, DoesNotCallTheWatcherOfAnUnwatchedDescriptor) {
  watchBytes();
  foundation::unwatchDescriptor(pipeEnds[0]);
  sendByte();
  foundation::pumpRunLoop();
  EXPECT_EQ(received, 0);
}

TEST_F(RunLoop, DescriptorCanBeUnwatchedInItsCallback) {
  foundation::watchDescriptor(pipeEnds[0], [this] {
    foundation::unwatchDescriptor(pipeEnds[0]);
    ++received;
  });
  sendByte();
  foundation::pumpRunLoop();
  foundation::pumpRunLoop();
  EXPECT_EQ(received, 1);
}

TEST_F(RunLoop, WaitsForTheGivenTimeIfNothingArrives) {
  foundation::pumpRunLoop();
  const auto start = std::chrono::steady_clock::now();
  foundation::pumpRunLoop(0.05);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(50));
}

TEST_F(RunLoop, WaitEndsWhenADescriptorIsReadable) {
  foundation::pumpRunLoop();
  watchBytes();
  std::thread sender([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    sendByte();
  });
  const auto start = std::chrono::steady_clock::now();
  foundation::pumpRunLoop(30);
  sender.join();
  EXPECT_EQ(received, 1);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST_F(RunLoop, DescriptorsAreWatchedUnderTheRealClock) {
  foundation::useClock(foundation::ClockMode::Real, 0);
  watchBytes();
  std::thread sender([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    sendByte();
  });
  foundation::runMainQueueUntil([this] { return received == 1; });
  sender.join();
  EXPECT_EQ(received, 1);
}

// Each request arrives before the previous one is finished.
TEST_F(RunLoop, EventsAreProcessedBetweenTheRequestsOfOtherProcesses) {
  foundation::useClock(foundation::ClockMode::Real, 0);
  std::string order;
  foundation::watchDescriptor(pipeEnds[0], [&] {
    char byte = 0;
    EXPECT_EQ(read(pipeEnds[0], &byte, 1), 1);
    foundation::onMainThread([&order] { order += "input "; });
  });
  for (int request = 1; request <= 4; ++request) {
    foundation::onMainThreadForRequest([this, &order, request] {
      order += std::to_string(request) + " ";
      if (request == 2) sendByte();
    });
  }
  foundation::runMainQueueUntil([&order] { return order.find('4') != std::string::npos; });
  EXPECT_EQ(order, "1 2 input 3 4 ");
}

TEST_F(RunLoop, RequestsAreExecutedWhileAnotherRequestWaits) {
  foundation::useClock(foundation::ClockMode::Real, 0);
  bool isDone = false;
  foundation::onMainThreadForRequest([&isDone] {
    foundation::onMainThreadForRequest([&isDone] { isDone = true; });
    foundation::pumpRunLoopAndMainQueue(0);
  });
  foundation::runNextRequest();
  EXPECT_TRUE(isDone);
}

std::string receivedText;

void receive(TestObserver*, NSNotification* notification) {
  const auto* const text = objc::as<NSString>(notification->userInfo()->objectForKey("text"_ns));
  receivedText = text == nullptr ? "nothing" : text->UTF8String();
}

NSNotificationCenter* distributedCenter() {
  return objc::send<NSNotificationCenter*, "defaultCenter">(objc::lookUpClass<"NSDistributedNotificationCenter">());
}

TEST_F(RunLoop, DeliversDistributedNotificationsOfOtherProcesses) {
  static constexpr objc::MethodEntry methods[] = {objc::method<"receive:", &receive>()};
  objc::defineClass<TestObserver>(methods);
  const auto observer = objc::make<TestObserver>();
  distributedCenter()->addObserver(observer, objc::selector<"receive:">(), "BrimTestDistributed"_ns);
  EXPECT_EQ(std::system(POST_DISTRIBUTED " BrimTestDistributed hello"), 0);
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (receivedText.empty() && std::chrono::steady_clock::now() < deadline) foundation::pumpRunLoop(0.1);
  distributedCenter()->removeObserver(observer, "BrimTestDistributed"_ns);
  EXPECT_EQ(receivedText, "hello");
  EXPECT_EQ(foundation::now(), 0) << "a stepped clock does not move by real time";
}

// GNUstep adds a timer that fires every 30 seconds.
TEST_F(RunLoop, HasNoTimerOfItsOwn) {
  watchBytes();
  auto* const runLoop = objc::send<NSObject*, "currentRunLoop">(objc::lookUpClass<"NSRunLoop">());
  auto* const next = objc::send<NSDate*, "limitDateForMode:">(runLoop, "NSDefaultRunLoopMode"_ns);
  EXPECT_EQ(next, (objc::send<NSDate*, "distantFuture">(NSDate::classObject())));
}

}  // namespace
