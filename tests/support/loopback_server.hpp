// A web server on this machine's loopback interface: answers as a test tells it, and remembers what it was asked.
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

// How much of the body reaches the client.
enum class Delivery {
  Whole,
  CutShort,  // the whole length is announced, the first half sent, the connection closed
  Endless,   // the body again and again, without a length, until the client has gone
  Nothing,   // the connection is closed instead of an answer
};

enum class Timing {
  AtOnce,
  WhenReleased,  // after `release`, or never
};

struct Answer {
  int status = 200;
  std::string body = {};
  // Beside those that say how long the body is.
  Headers headers = {};
  Delivery delivery = Delivery::Whole;
  Timing timing = Timing::AtOnce;
};

struct Request {
  std::string method;
  std::string target;  // path and query, as asked for
  Headers headers;

  // Empty where there is none of that name, in whatever case.
  std::string header(const std::string& name) const;
};

// Listens as long as it lives, on a port that was free. All members may be called from any thread.
class LoopbackServer {
 public:
  LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;
  ~LoopbackServer();

  // "http://127.0.0.1:PORT", followed by the target.
  std::string address(const std::string& target = "") const;

  // The answer to every request for the target from now on. Targets without one are answered 404.
  void answer(const std::string& target, Answer answer);
  // Lets the answers go that wait to be released, those of later requests too.
  void release();

  // All so far, in the order of their arrival.
  std::vector<Request> requests() const;
  // Waits until that many have arrived; false where the limit comes first.
  bool waitForRequests(std::size_t count, std::chrono::seconds limit = std::chrono::seconds(20)) const;

 private:
  struct Connection {
    int descriptor;
    std::thread thread;
  };

  void listen();
  void serve(int descriptor);
  Answer answerTo(const Request& request);
  void deliver(int descriptor, const Answer& answer) const;

  int listener = -1;
  int port = 0;
  std::thread listening;

  mutable std::mutex mutex;
  mutable std::condition_variable changed;
  std::map<std::string, Answer> answers;
  std::vector<Request> asked;
  std::vector<Connection> connections;
  bool released = false;
  bool ending = false;
};

}  // namespace test
