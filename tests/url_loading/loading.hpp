// Loads addresses by the platform's classes and waits for what comes, on a real clock.
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

// Longer than any test takes: what does not come at all must not keep the tests waiting for ever.
inline constexpr double patience = 60;

// What a completion was told.
struct Loaded {
  std::optional<NSInteger> status;
  std::optional<std::string> body;
  std::optional<UrlError> error;

  static Loaded of(const NSData* data, NSURLResponse* response, NSError* failure) {
    Loaded loaded;
    if (auto* const answer = objc::as<NSHTTPURLResponse>(response)) loaded.status = answer->statusCode();
    if (data != nullptr) loaded.body = std::string(static_cast<const char*>(data->bytes()), data->length());
    if (failure != nullptr) loaded.error = static_cast<UrlError>(objc::send<NSInteger, "code">(failure));
    return loaded;
  }
};

// Something that happens once, on any thread.
class Event {
 public:
  void happen() {
    const std::lock_guard lock(mutex);
    happened = true;
    changed.notify_all();
  }
  bool wait() {
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, std::chrono::duration<double>(patience), [this] { return happened; });
  }

 private:
  std::mutex mutex;
  std::condition_variable changed;
  bool happened = false;
};

// Runs the main queue until the condition holds, which other threads may bring about; false where it never does.
template <class Condition>
bool runUntil(const Condition& condition) {
  constexpr double look = 0.002;
  const double limit = foundation::now() + patience;
  while (!condition() && foundation::now() < limit) foundation::stepClock(look);
  return condition();
}

class UrlLoading : public RuntimeTest {
 public:
  static void SetUpTestSuite() { url_loading::registerClasses(); }

  static NSURLRequest* request(const std::string& address, double idleSeconds = patience) {
    auto* const made = objc::send<NSURLRequest*, "requestWithURL:">(objc::lookUpClass<"NSMutableURLRequest">(),
                                                                    NSURL::withString(base::stringOf(address)));
    objc::send<void, "setTimeoutInterval:">(made, idleSeconds);
    return made;
  }

  static Loaded load(NSURLRequest* wanted) {
    std::optional<Loaded> loaded;
    NSURLConnection::sendAsynchronousRequest(
        wanted, NSOperationQueue::mainQueue(),
        objc::block([&loaded](NSURLResponse* response, NSData* data, NSError* error) {
          loaded = Loaded::of(data, response, error);
        }));
    EXPECT_TRUE(runUntil([&] { return loaded.has_value(); })) << "nothing came";
    return loaded.value_or(Loaded());
  }
  static Loaded load(const std::string& address, double idleSeconds = patience) {
    return load(request(address, idleSeconds));
  }

  Loaded loadAnswer(const Answer& answer) {
    server.answer("/", answer);
    return load(server.address("/"));
  }

  LoopbackServer server;
};

}  // namespace test
