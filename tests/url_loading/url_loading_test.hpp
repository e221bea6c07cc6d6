// A test fixture that loads URLs with the platform's classes and waits for the result in real time.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

#include "platform/ns_url_connection.hpp"
#include "platform/ns_url_session.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/url_loading/classes.hpp"
#include "simulator/url_loading/transfers.hpp"
#include "tests/objc/runtime_environment.hpp"
#include "tests/support/loopback_server.hpp"

namespace test {

using url_loading::UrlError;

// The time limit of each wait. It is longer than any load takes in a test, so only a load that never completes reaches
// it.
inline constexpr double maxWaitSeconds = 60;

// The arguments of a completion. A member is nullopt if the argument was nil.
struct LoadResult {
  std::optional<NSInteger> status;
  std::optional<std::string> body;
  std::optional<UrlError> error;

  static LoadResult of(const NSData* data, NSURLResponse* response, NSError* error) {
    LoadResult result;
    if (auto* const http = objc::as<NSHTTPURLResponse>(response)) result.status = http->statusCode();
    if (data != nullptr) result.body = std::string(static_cast<const char*>(data->bytes()), data->length());
    if (error != nullptr) result.error = static_cast<UrlError>(objc::send<NSInteger, "code">(error));
    return result;
  }
};

// A signal that any thread raises once and another thread waits for.
class CompletionSignal {
 public:
  void raise() {
    const std::lock_guard lock(mutex_);
    isRaised_ = true;
    changed_.notify_all();
  }
  // Returns false if the signal is not raised within maxWaitSeconds.
  bool wait() {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::duration<double>(maxWaitSeconds), [this] { return isRaised_; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool isRaised_ = false;
};

// Runs the main queue until the condition holds. Returns false if it does not hold after maxWaitSeconds.
template <class Condition>
bool runUntil(const Condition& condition) {
  constexpr double stepSeconds = 0.002;
  const double deadline = foundation::now() + maxWaitSeconds;
  while (!condition() && foundation::now() < deadline) foundation::stepClock(stepSeconds);
  return condition();
}

class UrlLoadingTest : public RuntimeTest {
 public:
  static void SetUpTestSuite() { url_loading::registerClasses(); }

  // Returns an autoreleased request. It times out if no data arrives for `idleSeconds`.
  static NSURLRequest* request(const std::string& address, double idleSeconds = maxWaitSeconds) {
    auto* const request = objc::send<NSURLRequest*, "requestWithURL:">(objc::lookUpClass<"NSMutableURLRequest">(),
                                                                       NSURL::withString(base::stringOf(address)));
    objc::send<void, "setTimeoutInterval:">(request, idleSeconds);
    return request;
  }

  static LoadResult load(NSURLRequest* request) {
    std::optional<LoadResult> result;
    NSURLConnection::sendAsynchronousRequest(
        request, NSOperationQueue::mainQueue(),
        objc::block([&result](NSURLResponse* response, NSData* data, NSError* error) {
          result = LoadResult::of(data, response, error);
        }));
    EXPECT_TRUE(runUntil([&] { return result.has_value(); })) << "the completion did not run";
    return result.value_or(LoadResult());
  }
  static LoadResult load(const std::string& address, double idleSeconds = maxWaitSeconds) {
    return load(request(address, idleSeconds));
  }

  // Sets the response of the server, and loads it.
  LoadResult loadResponse(const Response& response) {
    server.answer("/", response);
    return load(server.address("/"));
  }

  LoopbackServer server;
};

}  // namespace test
