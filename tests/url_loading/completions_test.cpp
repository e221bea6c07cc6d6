// Tests of completions of requests: on which thread they run, when, and how often.
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>

#include "simulator/base/event_log.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/url_loading/request_loader.hpp"
#include "tests/url_loading/url_loading_test.hpp"

namespace test {

namespace {

bool isMainThread() { return getpid() == gettid(); }

using Completions = UrlLoadingTest;

NSURLSessionDataTask* makeTask(NSURLRequest* request, const objc::BlockRef<NSURLSession::Completion>& completion) {
  return NSURLSession::sharedSession()->dataTask(request, completion);
}

TEST_F(Completions, RunOnAnotherThreadInASession) {
  server.answer("/page", {.body = "text"});
  CompletionSignal done;
  LoadResult result;
  std::atomic<bool> onMainThread = true;
  makeTask(request(server.address("/page")), objc::block([&](NSData* data, NSURLResponse* response, NSError* error) {
             result = LoadResult::of(data, response, error);
             onMainThread = isMainThread();
             done.raise();
           }))
      ->resume();
  // This wait blocks the main thread, so the completion can only run on another thread.
  ASSERT_TRUE(done.wait());
  EXPECT_FALSE(onMainThread);
  EXPECT_EQ(result.status, 200);
  EXPECT_EQ(result.body, "text");
}

TEST_F(Completions, RunOneAfterTheOtherInASession) {
  constexpr int count = 20;
  server.answer("/", {.body = "x"});
  CompletionSignal done;
  std::atomic<int> running = 0;
  std::atomic<int> finished = 0;
  std::atomic<bool> hasOverlapped = false;
  for (int index = 0; index < count; ++index) {
    makeTask(request(server.address("/")), objc::block([&](NSData*, NSURLResponse*, NSError*) {
               if (++running != 1) hasOverlapped = true;
               usleep(1000);
               --running;
               if (++finished == count) done.raise();
             }))
        ->resume();
  }
  ASSERT_TRUE(done.wait());
  EXPECT_FALSE(hasOverlapped);
}

TEST_F(Completions, RunOnceAndOnlyAfterTheirTaskIsResumed) {
  server.answer("/", {.body = "x"});
  std::atomic<int> calls = 0;
  NSURLSessionDataTask* const task =
      makeTask(request(server.address("/")), objc::block([&](NSData*, NSURLResponse*, NSError*) { ++calls; }));
  EXPECT_EQ(url_loading::pendingRequestCount(), 0u);
  task->resume();
  task->resume();
  ASSERT_TRUE(runUntil([] { return url_loading::pendingRequestCount() == 0; }));
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(server.requests().size(), 1u);
}

TEST_F(Completions, RunOnTheMainThreadForTheMainQueue) {
  bool onMainThread = false;
  NSURLConnection::sendAsynchronousRequest(
      request(server.address("/")), NSOperationQueue::mainQueue(),
      objc::block([&](NSURLResponse*, NSData*, NSError*) { onMainThread = isMainThread(); }));
  ASSERT_TRUE(runUntil([] { return url_loading::pendingRequestCount() == 0; }));
  EXPECT_TRUE(onMainThread);
}

TEST_F(Completions, RunOnTheQueueGivenToTheConnection) {
  const auto queue = objc::make<NSOperationQueue>();
  CompletionSignal done;
  std::atomic<bool> onMainThread = true;
  NSURLConnection::sendAsynchronousRequest(request(server.address("/")), queue,
                                           objc::block([&](NSURLResponse*, NSData*, NSError*) {
                                             onMainThread = isMainThread();
                                             done.raise();
                                           }));
  ASSERT_TRUE(done.wait());
  EXPECT_FALSE(onMainThread);
}

TEST_F(Completions, CanBeNil) {
  NSURLConnection::sendAsynchronousRequest(request(server.address("/")), NSOperationQueue::mainQueue(), nullptr);
  NSURLSession::sharedSession()->dataTask(request(server.address("/")), nullptr)->resume();
  EXPECT_TRUE(runUntil([] { return url_loading::pendingRequestCount() == 0; }));
}

TEST_F(Completions, ReleaseTheirCaptures) {
  const auto captured = objc::make<NSObject>();
  objc::Weak<NSObject> observed(captured.get());
  {
    const objc::AutoreleasePool pool;
    makeTask(request(server.address("/")),
             objc::block(
                 [mine = objc::retain(captured.get())](NSData*, NSURLResponse*, NSError*) { static_cast<void>(mine); }))
        ->resume();
    ASSERT_TRUE(runUntil([] { return url_loading::pendingRequestCount() == 0; }));
  }
  EXPECT_TRUE(runUntil([&] { return objc::send<NSUInteger, "retainCount">(captured.get()) == 1; }));
}

TEST_F(Completions, RunOnlyWhileRealTimePassesOnASteppedClock) {
  foundation::useClock(foundation::ClockMode::Stepped, 0);
  server.answer("/", {.body = "x"});
  bool called = false;
  NSURLConnection::sendAsynchronousRequest(request(server.address("/")), NSOperationQueue::mainQueue(),
                                           objc::block([&](NSURLResponse*, NSData*, NSError*) { called = true; }));
  ASSERT_TRUE(server.waitForRequests(1));
  for (int step = 0; step < 20; ++step) {
    usleep(5000);
    foundation::stepClock(1);
    foundation::pumpRunLoop();
    foundation::drainMainQueue();
    ASSERT_FALSE(called);
  }
  for (int attempt = 0; attempt < 1000 && !called; ++attempt) {
    foundation::pumpRunLoop(0.05);
    foundation::drainMainQueue();
  }
  EXPECT_TRUE(called);
}

TEST_F(Completions, AllRunForManyConcurrentRequests) {
  constexpr std::size_t count = 200;
  server.answer("/", {.body = std::string(10'000, 'x')});
  std::size_t complete = 0;
  for (std::size_t index = 0; index < count; ++index) {
    NSURLConnection::sendAsynchronousRequest(request(server.address("/")), NSOperationQueue::mainQueue(),
                                             objc::block([&](NSURLResponse*, NSData* data, NSError*) {
                                               if (data->length() == 10'000) ++complete;
                                             }));
  }
  EXPECT_TRUE(runUntil([&] { return complete == count; }));
  EXPECT_EQ(server.requests().size(), count);
}

TEST_F(Completions, AreLoggedWithAddressAndStatus) {
  server.answer("/gone", {.status = 410});
  const std::string gone = server.address("/gone");
  load(gone);
  load("ftp://127.0.0.1/");
  EXPECT_EQ(base::takeEvents(),
            nlohmann::ordered_json::array(
                {{{"event", "http"}, {"url", gone}, {"status", 410}},
                 {{"event", "http"}, {"url", "ftp://127.0.0.1/"}, {"status", nullptr}, {"error", -1002}}}));
}

// Returns how often each thread other than the main thread has woken up.
std::map<std::string, long> wakeups() {
  std::map<std::string, long> counts;
  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
    if (task.path().filename() == std::to_string(getpid())) continue;
    std::ifstream status(task.path() / "status");
    for (std::string line; std::getline(status, line);)
      if (line.starts_with("voluntary_ctxt_switches:")) counts[task.path().filename()] = std::stol(line.substr(24));
  }
  return counts;
}

TEST_F(Completions, LeaveAllThreadsIdle) {
  server.answer("/", {.body = "x"});
  load(server.address("/"));
  // Retries, because the threads need some time to become idle on a busy machine.
  bool isIdle = false;
  for (int attempt = 0; attempt < 50 && !isIdle; ++attempt) {
    const std::map<std::string, long> before = wakeups();
    usleep(200'000);
    isIdle = wakeups() == before;
  }
  EXPECT_TRUE(isIdle);
}

// Ends the process with requests in every state: connecting, waiting for a response, and in a TLS handshake.
void exitWithPendingRequests(const LoopbackServer& server, NSURLRequest* (*request)(const std::string&, double)) {
  std::string secure = server.address("/");
  secure.replace(0, 4, "https");
  for (int index = 0; index < 30; ++index) {
    for (const std::string& address : {server.address("/"), secure, server.address("/at-once")}) {
      makeTask(request(address, maxWaitSeconds), objc::block([](NSData*, NSURLResponse*, NSError*) {}))->resume();
      NSURLConnection::sendAsynchronousRequest(request(address, maxWaitSeconds), NSOperationQueue::mainQueue(),
                                               nullptr);
    }
  }
  server.waitForRequests(1);
  std::exit(0);
}

TEST_F(Completions, PendingOnesDoNotPreventTheProcessFromExiting) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  server.answer("/", {.timing = Timing::WhenReleased});
  server.answer("/at-once", {.body = "x"});
  EXPECT_EXIT(exitWithPendingRequests(server, &UrlLoadingTest::request), testing::ExitedWithCode(0), "");
}

}  // namespace

}  // namespace test
