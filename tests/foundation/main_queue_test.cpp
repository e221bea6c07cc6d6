#include "simulator/foundation/main_queue.hpp"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "platform/ns_date.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "tests/objc/counted.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

using foundation::ClockMode;
using foundation::FrameDemand;

class SteppedClock : public RuntimeTest {
 protected:
  SteppedClock() { foundation::useClock(ClockMode::Stepped, 1'000'000'000); }
  // Runs the work that the test has left in the queue. Otherwise, it would run in the next test.
  void TearDown() override { foundation::stepClock(1000); }

  void schedule(double seconds, const std::string& name) {
    foundation::onMainThreadAfter(seconds,
                                  [this, name] { log.push_back(name + "@" + std::to_string(foundation::now())); });
  }

  std::vector<std::string> log;
};
using Log = std::vector<std::string>;

TEST_F(SteppedClock, StandsStillUntilStepped) {
  EXPECT_EQ(foundation::now(), 0);
  std::this_thread::sleep_for(std::chrono::milliseconds(2));
  foundation::drainMainQueue();
  EXPECT_EQ(foundation::now(), 0);
  foundation::stepClock(2.5);
  EXPECT_EQ(foundation::now(), 2.5);
}

TEST_F(SteppedClock, RunsTimersInOrderAtTheirExactTimes) {
  schedule(3, "c");
  schedule(1, "a");
  schedule(2, "b");
  foundation::stepClock(2);
  EXPECT_EQ(log, (Log{"a@1.000000", "b@2.000000"}));
  foundation::stepClock(1);
  EXPECT_EQ(log.size(), 3U);
}

TEST_F(SteppedClock, RunsTimersWithTheSameTimeInTheOrderOfTheirAddition) {
  for (const char* name : {"first", "second", "third"}) schedule(1, name);
  foundation::stepClock(1);
  EXPECT_EQ(log, (Log{"first@1.000000", "second@1.000000", "third@1.000000"}));
}

TEST_F(SteppedClock, StepsAddUpWithoutRoundingErrors) {
  schedule(5, "due");
  for (int step = 0; step < 49; ++step) foundation::stepClock(0.1);
  EXPECT_TRUE(log.empty());
  foundation::stepClock(0.1);
  EXPECT_EQ(log, (Log{"due@5.000000"}));
  EXPECT_EQ(foundation::now(), 5);
}

TEST_F(SteppedClock, RunsWorkAddedByOtherWork) {
  foundation::onMainThreadAfter(1, [this] {
    schedule(0.5, "nested");
    foundation::onMainThread([this] { log.push_back("next iteration"); });
  });
  foundation::stepClock(2);
  EXPECT_EQ(log, (Log{"next iteration", "nested@1.500000"}));
}

TEST_F(SteppedClock, DrainRunsDueWorkWithoutAdvancingTheClock) {
  foundation::onMainThread([this] { log.push_back("now"); });
  schedule(0, "zero");
  schedule(0.000001, "soon");
  foundation::drainMainQueue();
  EXPECT_EQ(log, (Log{"now", "zero@0.000000"}));
}

TEST_F(SteppedClock, EndOfIterationObserverRunsAfterDueWorkAndCanAddWork) {
  int iterations = 0;
  const auto observer = foundation::addIterationObserver([this, &iterations] {
    log.push_back("end");
    if (++iterations == 1) foundation::onMainThread([this] { log.push_back("added"); });
  });
  foundation::onMainThread([this] { log.push_back("now"); });
  schedule(0, "zero");
  foundation::drainMainQueue();
  foundation::removeIterationObserver(observer);
  EXPECT_EQ(log, (Log{"now", "zero@0.000000", "end", "added", "end"}));
}

TEST_F(SteppedClock, EndOfIterationObserversRunInOrderUntilTheyAreRemoved) {
  const auto first = foundation::addIterationObserver([this] { log.push_back("first"); });
  const auto second = foundation::addIterationObserver([this] { log.push_back("second"); });
  foundation::drainMainQueue();
  foundation::removeIterationObserver(first);
  foundation::drainMainQueue();
  foundation::removeIterationObserver(second);
  foundation::drainMainQueue();
  EXPECT_EQ(log, (Log{"first", "second", "second"}));
}

TEST_F(SteppedClock, InvalidStepsAndDelaysAreHarmless) {
  const double infinity = std::numeric_limits<double>::infinity();
  schedule(-5, "past");
  schedule(std::nan(""), "not a number");
  schedule(infinity, "never");
  for (const double step : {-1.0, std::nan(""), infinity}) foundation::stepClock(step);
  EXPECT_EQ(foundation::now(), 0);
  EXPECT_EQ(log, (Log{"past@0.000000", "not a number@0.000000"}));
  EXPECT_TRUE(foundation::mainQueueIsIdle());
}

TEST_F(SteppedClock, RunsSixtyFramesPerSecondWhileRequested) {
  std::vector<double> times;
  foundation::addFrameObserver([&](double now) {
    times.push_back(now);
    return times.size() < 60 ? FrameDemand::More : FrameDemand::Done;
  });
  foundation::stepClock(10);
  ASSERT_EQ(times.size(), 60U);
  for (std::size_t frame = 0; frame < times.size(); ++frame)
    EXPECT_NEAR(times[frame], static_cast<double>(frame + 1) / 60, 1e-9);
  EXPECT_EQ(times.back(), 1);
  EXPECT_EQ(foundation::now(), 10);
}

TEST_F(SteppedClock, FrameObserverIsCalledAtTheNextFrame) {
  foundation::stepClock(0.01);
  double calledAt = 0;
  foundation::addFrameObserver([&](double now) {
    calledAt = now;
    return FrameDemand::Done;
  });
  foundation::stepClock(0.001);
  EXPECT_EQ(calledAt, 0);
  foundation::stepClock(1);
  EXPECT_NEAR(calledAt, 1.0 / 60, 1e-9);
}

TEST_F(SteppedClock, ObserversAddedDuringAFrameWaitForTheNextFrame) {
  double inner = 0;
  foundation::addFrameObserver([&](double) {
    foundation::addFrameObserver([&](double now) {
      inner = now;
      return FrameDemand::Done;
    });
    return FrameDemand::Done;
  });
  foundation::stepClock(1);
  EXPECT_NEAR(inner, 2.0 / 60, 1e-9);
}

TEST_F(SteppedClock, FrameObserverWithATimeIsCalledAtTheFirstFrameNotBeforeThatTime) {
  std::vector<double> times;
  const auto observe = [&](double) {
    times.push_back(foundation::now());
    return FrameDemand::Done;
  };
  foundation::addFrameObserverAt(2 * foundation::nanosecondsInSecond, observe);
  foundation::addFrameObserverAt(3 * foundation::nanosecondsInSecond + 1, observe);
  foundation::addFrameObserverAt(-1, observe);
  foundation::stepClock(10);
  ASSERT_EQ(times.size(), 3U);
  EXPECT_NEAR(times[0], 1.0 / 60, 1e-9);
  EXPECT_EQ(times[1], 2);
  EXPECT_NEAR(times[2], 3 + 1.0 / 60, 1e-9);
}

TEST_F(SteppedClock, RemovedFrameObserverIsNotCalled) {
  const auto removed = foundation::addFrameObserver([this](double) {
    log.push_back("removed");
    return FrameDemand::More;
  });
  foundation::addFrameObserver([&, this](double) {
    log.push_back("other");
    foundation::removeFrameObserver(removed);
    return FrameDemand::Done;
  });
  foundation::stepClock(1);
  EXPECT_EQ(log, (Log{"removed", "other"}));
  EXPECT_TRUE(foundation::mainQueueIsIdle());
}

TEST_F(SteppedClock, TimersRunBeforeAFrameOfTheSameTime) {
  foundation::addFrameObserver([this](double now) {
    log.push_back("frame");
    return now < 1 ? FrameDemand::More : FrameDemand::Done;
  });
  schedule(1, "timer");
  foundation::stepClock(1);
  ASSERT_EQ(log.size(), 61U);
  EXPECT_EQ(log[59], "timer@1.000000");
  EXPECT_EQ(log[60], "frame");
}

TEST_F(SteppedClock, ReportsIdleWhenNoWorkIsLeft) {
  EXPECT_TRUE(foundation::mainQueueIsIdle());
  schedule(1, "work");
  EXPECT_FALSE(foundation::mainQueueIsIdle());
  foundation::stepClock(1);
  EXPECT_TRUE(foundation::mainQueueIsIdle());
  foundation::addFrameObserver([](double) { return FrameDemand::Done; });
  EXPECT_FALSE(foundation::mainQueueIsIdle());
}

TEST_F(SteppedClock, ManyStepsEndExactlyAtTheirSum) {
  for (int step = 0; step < 10000; ++step) foundation::stepClock(5);
  EXPECT_EQ(foundation::now(), 50000);
}

TEST_F(SteppedClock, DatesUseTheSteppedTime) {
  foundation::stepClock(1.5);
  EXPECT_EQ(foundation::unixTimeNow(), 1'000'000'001.5);
  EXPECT_NEAR((objc::send<double, "timeIntervalSince1970">(NSDate::date())), 1'000'000'001.5, 1e-6);
  EXPECT_NEAR((objc::send<double, "timeIntervalSinceReferenceDate">(NSDate::classObject())),
              1'000'000'001.5 - 978307200, 1e-6);
}

TEST_F(SteppedClock, EachWorkItemHasItsOwnAutoreleasePool) {
  foundation::onMainThread([] { objc::autorelease(objc::make<Counted>()); });
  foundation::onMainThread([this] { log.push_back(std::to_string(livingObjects())); });
  foundation::drainMainQueue();
  EXPECT_EQ(log, (Log{"0"}));
}

TEST_F(SteppedClock, AcceptsWorkFromOtherThreads) {
  std::thread([this] { foundation::onMainThread([this] { log.push_back("posted"); }); }).join();
  EXPECT_TRUE(log.empty());
  foundation::drainMainQueue();
  EXPECT_EQ(log, (Log{"posted"}));
}

TEST_F(SteppedClock, ChangingTheClockKeepsTheRemainingDelays) {
  foundation::stepClock(100);
  schedule(2, "kept");
  foundation::useClock(ClockMode::Stepped, 5);
  EXPECT_EQ(foundation::unixTimeNow(), 5);
  foundation::stepClock(2);
  EXPECT_EQ(log, (Log{"kept@2.000000"}));
}

class RealClock : public RuntimeTest {
 protected:
  RealClock() { foundation::useClock(ClockMode::Real, 0); }

  static void runFor(double seconds) {
    bool done = false;
    foundation::onMainThreadAfter(seconds, [&] { done = true; });
    foundation::runMainQueueUntil([&] { return done; });
  }
  static long wakeUps() {
    rusage usage = {};
    getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nvcsw;
  }
};

TEST_F(RealClock, RunsTimersInOrderAndNotEarly) {
  std::vector<int> order;
  const double start = foundation::now();
  foundation::onMainThreadAfter(0.02, [&] { order.push_back(2); });
  foundation::onMainThreadAfter(0.01, [&] { order.push_back(1); });
  runFor(0.03);
  EXPECT_EQ(order, (std::vector<int>{1, 2}));
  EXPECT_GE(foundation::now() - start, 0.03);
}

TEST_F(RealClock, SleepsBetweenEvents) {
  runFor(0.001);
  const long before = wakeUps();
  runFor(0.3);
  EXPECT_LT(wakeUps() - before, 10);
}

TEST_F(RealClock, IsWokenByOtherThreads) {
  bool done = false;
  const double start = foundation::now();
  std::thread poster([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    foundation::onMainThread([&] { done = true; });
  });
  foundation::runMainQueueUntil([&] { return done; });
  poster.join();
  EXPECT_GE(foundation::now() - start, 0.02);
}

TEST_F(RealClock, FramesFollowTheScreensRefreshRate) {
  int frames = 0;
  foundation::addFrameObserver([&](double) { return ++frames < 12 ? FrameDemand::More : FrameDemand::Done; });
  const double start = foundation::now();
  foundation::runMainQueueUntil([&] { return frames == 12; });
  EXPECT_GE(foundation::now() - start, 11.0 / 60);
}

TEST_F(RealClock, DatesUseTheRealTime) {
  const auto real = std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
  EXPECT_NEAR((objc::send<double, "timeIntervalSince1970">(NSDate::date())), real, 5);
}

}  // namespace
