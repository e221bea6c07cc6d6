#include "simulator/foundation/dispatch_queues.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <limits>
#include <thread>
#include <vector>

#include "simulator/foundation/main_queue.hpp"
#include "tests/objc/counted.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

class Dispatch : public RuntimeTest {
 protected:
  Dispatch() { foundation::useClock(foundation::ClockMode::Stepped, 0); }
};

TEST_F(Dispatch, MainQueueRunsWorkInALaterRunLoopIteration) {
  std::vector<int> order;
  onMainQueue([&order] { order.push_back(2); });
  order.push_back(1);
  foundation::drainMainQueue();
  EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST_F(Dispatch, MainQueueRunsDelayedWorkAtItsTime) {
  double ran = -1;
  onMainQueueAfter(5 * nanosecondsPerSecond, [&ran] { ran = foundation::now(); });
  foundation::stepClock(4.999999999);
  EXPECT_EQ(ran, -1);
  foundation::stepClock(0.000000001);
  EXPECT_EQ(ran, 5);
}

TEST_F(Dispatch, BlockIsReleasedAfterItHasRun) {
  onMainQueueAfter(nanosecondsPerSecond, [object = objc::make<Counted>()] { EXPECT_NE(object.get(), nullptr); });
  EXPECT_EQ(livingObjects(), 1);
  foundation::stepClock(1);
  EXPECT_EQ(livingObjects(), 0);
}

TEST_F(Dispatch, TimesSaturate) {
  EXPECT_EQ(dispatch_time(DISPATCH_TIME_FOREVER, -5), DISPATCH_TIME_FOREVER);
  EXPECT_EQ(dispatch_time(0, std::numeric_limits<std::int64_t>::max()), DISPATCH_TIME_FOREVER);
  EXPECT_GT(dispatch_time(0, std::numeric_limits<std::int64_t>::min()), 0U);
  const dispatch_time_t base = dispatch_time(0, 10);
  EXPECT_EQ(dispatch_time(base, 5), base + 5);
  EXPECT_EQ(dispatch_time(base, -5), base - 5);
}

TEST_F(Dispatch, NegativeDelayIsDueAtOnceAndForeverIsNeverDue) {
  std::vector<int> order;
  onMainQueueAfter(-nanosecondsPerSecond, [&order] { order.push_back(1); });
  dispatch_after(0, &_dispatch_main_q, objc::block([&order] { order.push_back(2); }));
  dispatch_after(DISPATCH_TIME_FOREVER, &_dispatch_main_q, objc::block([&order] { order.push_back(3); }));
  foundation::drainMainQueue();
  EXPECT_EQ(order, (std::vector<int>{1, 2}));
  EXPECT_TRUE(foundation::mainQueueIsIdle());
}

TEST_F(Dispatch, SerialQueueRunsInOrderOnAnotherThread) {
  const dispatch_queue_t queue = dispatch_queue_create("test", nullptr);
  std::vector<int> order;
  std::thread::id executingThread;
  for (int number = 0; number < 100; ++number) {
    dispatch_async(queue, objc::block([&, number] {
                     order.push_back(number);
                     executingThread = std::this_thread::get_id();
                   }));
  }
  dispatch_sync(queue, objc::block([] {}));
  ASSERT_EQ(order.size(), 100U);
  for (int number = 0; number < 100; ++number) EXPECT_EQ(order[static_cast<std::size_t>(number)], number);
  EXPECT_NE(executingThread, std::this_thread::get_id());
}

TEST_F(Dispatch, SyncRunsOnTheCallersThread) {
  const dispatch_queue_t queue = dispatch_queue_create(nullptr, nullptr);
  std::thread::id executingThread;
  dispatch_sync(queue, objc::block([&executingThread] { executingThread = std::this_thread::get_id(); }));
  EXPECT_EQ(executingThread, std::this_thread::get_id());
}

TEST_F(Dispatch, SerialQueueRunsOneBlockAtATime) {
  const dispatch_queue_t queue = dispatch_queue_create("test", nullptr);
  int counter = 0;
  const auto work = [&] {
    for (int round = 0; round < 5000; ++round) dispatch_sync(queue, objc::block([&counter] { ++counter; }));
  };
  std::thread first(work);
  std::thread second(work);
  for (int round = 0; round < 5000; ++round) dispatch_async(queue, objc::block([&counter] { ++counter; }));
  first.join();
  second.join();
  dispatch_sync(queue, objc::block([] {}));
  EXPECT_EQ(counter, 15000);
}

TEST_F(Dispatch, DelayedWorkOfASerialQueueFollowsTheClock) {
  const dispatch_queue_t queue = dispatch_queue_create("test", nullptr);
  std::atomic<bool> ran = false;
  dispatch_after(dispatch_time(0, nanosecondsPerSecond), queue, objc::block([&ran] { ran = true; }));
  dispatch_sync(queue, objc::block([] {}));
  EXPECT_FALSE(ran);
  foundation::stepClock(1);
  dispatch_sync(queue, objc::block([] {}));
  EXPECT_TRUE(ran);
}

TEST_F(Dispatch, OtherThreadsCanWaitForTheMainQueue) {
  foundation::useClock(foundation::ClockMode::Real, 0);
  std::thread::id executingThread;
  bool done = false;
  std::thread waiting([&] {
    dispatch_sync(&_dispatch_main_q, objc::block([&executingThread] { executingThread = std::this_thread::get_id(); }));
    foundation::onMainThread([&done] { done = true; });
  });
  foundation::runMainQueueUntil([&done] { return done; });
  waiting.join();
  EXPECT_EQ(executingThread, std::this_thread::get_id());
}

TEST_F(Dispatch, SyncOnTheCurrentQueueEndsTheProcess) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_DEATH(dispatch_sync(&_dispatch_main_q, objc::block([] {})), "from work of the same queue");
}

std::atomic<bool> destructorRan = false;

struct SlowStaticDestructor {
  ~SlowStaticDestructor() {
    destructorRan = true;
    usleep(50'000);
  }
};

void enqueueForever(dispatch_queue_t queue) {
  if (destructorRan) _exit(3);
  dispatch_async(queue, objc::block([queue] { enqueueForever(queue); }));
}

void exitWithWorkInAQueue() {
  static const SlowStaticDestructor object;
  enqueueForever(dispatch_queue_create("test", nullptr));
  usleep(20'000);
  std::exit(0);
}

TEST_F(Dispatch, QueuesStopBeforeStaticDestructorsRun) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(exitWithWorkInAQueue(), testing::ExitedWithCode(0), "");
}

}  // namespace
