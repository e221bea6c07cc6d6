#include "bench/benchmarks.hpp"

#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <thread>

#include "bench/measurement.hpp"
#include "objc/autorelease_pool.hpp"
#include "objc/class_definition.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "simulator/base/event_log.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/classes.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/messages/chat_store.hpp"
#include "simulator/runner/session.hpp"

namespace bench {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::size_t rounds = 200;
constexpr const char* address = "+491701234567";
constexpr std::chrono::microseconds pollInterval(20);
constexpr std::chrono::seconds maxReplyTime(30);

class Listener : public objc::Interface<"BrimBenchListener", NSObject> {};

// The pipe on which the listening process signals that it is ready, and that it has received a notification.
int signalDescriptor = -1;

void signalParent() {
  const char byte = 1;
  if (write(signalDescriptor, &byte, 1) != 1) _exit(1);
}

void receive(Listener*, NSNotification* notification) {
  if (notification->userInfo()->count() == 3) signalParent();
}

[[noreturn]] void listen(const fs::path& root) {
  if (foundation::useRoot(root, foundation::DefaultsDatabase::OfRoot)) _exit(1);
  foundation::registerClasses();
  const objc::AutoreleasePool pool;
  static constexpr objc::MethodEntry methods[] = {objc::method<"receive:", &receive>()};
  objc::defineClass<Listener>(methods);
  const auto listener = objc::make<Listener>();
  NSDistributedNotificationCenter::defaultCenter()->addObserver(listener, objc::selector<"receive:">(),
                                                                "BrimBenchNotification"_ns);
  signalParent();
  for (;;) foundation::pumpRunLoop(1);
}

// A child process that receives the notifications of the benchmark and signals each of them.
class ListeningProcess {
 public:
  explicit ListeningProcess(const fs::path& root) {
    int ends[2];
    if (pipe(ends) != 0) std::abort();
    process_ = fork();
    if (process_ == 0) {
      signalDescriptor = ends[1];
      listen(root);
    }
    close(ends[1]);
    descriptor_ = ends[0];
  }
  ListeningProcess(const ListeningProcess&) = delete;
  ListeningProcess& operator=(const ListeningProcess&) = delete;
  ~ListeningProcess() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    close(descriptor_);
  }

  void waitForSignal() const {
    char byte = 0;
    if (read(descriptor_, &byte, 1) != 1) std::abort();
  }

 private:
  pid_t process_ = 0;
  int descriptor_ = -1;
};

double secondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

double timeOfNotification(const ListeningProcess& listener, std::size_t round) {
  const objc::AutoreleasePool pool;
  auto* userInfo = static_cast<NSDictionary*>(base::objectOf(
      {{"identifier", address}, {"body", "Reply number " + std::to_string(round)}, {"brimIdentifier", "abcdefgh"}}));
  const auto start = Clock::now();
  NSDistributedNotificationCenter::defaultCenter()->post("BrimBenchNotification"_ns, userInfo);
  listener.waitForSignal();
  return secondsSince(start);
}

void presentAndType(runner::Session& session, std::size_t round) {
  session.run({{"do", "present"}, {"section", "com.apple.MobileSMS"}, {"title", "Anna"}, {"thread", address}});
  session.run({{"do", "wait"}, {"seconds", 1}});
  session.run({{"do", "drag"}, {"by", {0, 200}}});
  session.run({{"do", "wait"}, {"seconds", 1}});
  session.run({{"do", "type"}, {"text", "Reply number " + std::to_string(round)}});
}

// Returns the time, in seconds, from the press of the return key until the home screen is notified that the message is
// in the store.
double timeOfReply(runner::Session& session, std::size_t round) {
  presentAndType(session, round);
  const std::size_t before = base::eventCount("message");
  const auto start = Clock::now();
  session.run({{"do", "key"}, {"name", "return"}});
  while (base::eventCount("message") == before) {
    if (Clock::now() - start > maxReplyTime) std::abort();
    std::this_thread::sleep_for(pollInterval);
  }
  const double time = secondsSince(start);
  session.run({{"do", "wait"}, {"seconds", 7}});
  session.run({{"do", "log"}});
  return time;
}

// Returns times in seconds: the time of the first reply, which launches the app, and then for each round the time of a
// notification and the time of a reply.
Figures replyMany() {
  std::string pattern = (fs::temp_directory_path() / "brim-bench-XXXXXX").string();
  const fs::path folder = mkdtemp(pattern.data());
  const fs::path root = folder / "root";
  Figures figures;
  // The default timer slack of 50 microseconds would be longer than the poll interval.
  prctl(PR_SET_TIMERSLACK, 1000);
  {
    messages::ChatStore(root).addTo("iMessage;-;" + std::string(address), "Anna", {});
    const ListeningProcess listener(root);
    runner::Options options;
    options.root = root;
    runner::Session session(options);
    listener.waitForSignal();
    figures.push_back(timeOfReply(session, 0));
    for (std::size_t round = 1; round <= rounds; ++round) {
      figures.push_back(timeOfNotification(listener, round));
      figures.push_back(timeOfReply(session, round));
    }
  }
  fs::remove_all(folder);
  return figures;
}

// Returns the 10th percentile. The median would depend on the machine's load, because several processes take part in
// every round.
double tenthPercentile(Figures figures) {
  const auto tenth = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 10);
  std::nth_element(figures.begin(), tenth, figures.end());
  return *tenth;
}

}  // namespace

void measureReplying() {
  const Figures figures = inChildProcess(&replyMany);
  Figures notifications;
  Figures replies;
  for (std::size_t index = 1; index < figures.size(); index += 2) {
    notifications.push_back(figures[index]);
    replies.push_back(figures[index + 1]);
  }
  const double reply = tenthPercentile(replies);
  const double notification = tenthPercentile(notifications);
  report("time from return key to store / time of a notification", reply / notification, 2.0);
  std::printf("  %.2f ms / %.2f ms; the first reply, which launches the Messages app, takes %.0f ms\n", reply * 1e3,
              notification * 1e3, figures.front() * 1e3);
}

}  // namespace bench
