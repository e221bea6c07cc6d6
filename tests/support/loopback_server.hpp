// An HTTP server on the loopback interface. It gives the responses that a test has set and records all requests.
#pragma once

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace test {

using Headers = std::vector<std::pair<std::string, std::string>>;

// The part of the response that the client receives.
enum class Delivery {
  Whole,
  CutShort,  // Content-Length is the size of the whole body, but the connection closes after the first half
  Endless,   // no Content-Length; the body repeats until the client closes the connection
  Nothing,   // the connection closes without a response
};

enum class Timing {
  AtOnce,
  WhenReleased,  // the response waits until release() is called
};

struct Response {
  int status = 200;
  std::string body = {};
  // The server sends these headers in addition to Content-Length and Connection.
  Headers headers = {};
  Delivery delivery = Delivery::Whole;
  Timing timing = Timing::AtOnce;
};

struct Request {
  std::string method;
  std::string target;  // path and query, as the client sent them
  Headers headers;

  // The value of the header. Empty if the header is missing. Names are compared case-insensitively.
  std::string header(const std::string& name) const;
};

// Listens on a free port until it is destroyed. All members can be called from any thread.
class LoopbackServer {
 public:
  // Throws std::runtime_error if no port can be opened.
  LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;
  ~LoopbackServer();

  // Returns "http://127.0.0.1:PORT" followed by the target.
  std::string address(const std::string& target = "") const;

  // Sets the response to all later requests for the target. A request for any other target gets status 404.
  void answer(const std::string& target, Response response);
  // Sends the waiting responses with Timing::WhenReleased. From then on, all responses are sent at once.
  void release();

  // All requests received so far, oldest first.
  std::vector<Request> requests() const;
  // Waits until at least `count` requests have been received. Returns false if the time limit expires first.
  bool waitForRequests(std::size_t count, std::chrono::seconds limit = std::chrono::seconds(20)) const;

 private:
  struct Connection {
    int descriptor;
    std::thread thread;
  };

  void listen();
  void serve(int descriptor);
  Response responseTo(const Request& request);
  void deliver(int descriptor, const Response& response) const;

  int listener_ = -1;
  int port_ = 0;
  std::thread listenerThread_;

  // The mutex guards the members below it.
  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  std::map<std::string, Response> responses_;
  std::vector<Request> requests_;
  std::vector<Connection> connections_;
  bool isReleased_ = false;
  bool isEnding_ = false;
};

}  // namespace test
