#include "bench/replying.hpp"

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
constexpr std::chrono::microseconds betweenLooks(20);
constexpr std::chrono::seconds longest(30);

class Listener : public objc::Interface<"BrimBenchListener", NSObject> {};

// Where the listening process tells that it listens, and that a notification has come.
int tellingEnd = -1;

void tell() {
  const char byte = 1;
  if (write(tellingEnd, &byte, 1) != 1) _exit(1);
}

void receive(Listener*, NSNotification* notification) {
  if (notification->userInfo()->count() == 3) tell();
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
  tell();
  for (;;) foundation::pumpFoundation(1);
}

// A process that does nothing but hear notifications.
class ListeningProcess {
 public:
  explicit ListeningProcess(const fs::path& root) {
    int ends[2];
    if (pipe(ends) != 0) std::abort();
    process = fork();
    if (process == 0) {
      tellingEnd = ends[1];
      listen(root);
    }
    close(ends[1]);
    told = ends[0];
  }
  ListeningProcess(const ListeningProcess&) = delete;
  ListeningProcess& operator=(const ListeningProcess&) = delete;
  ~ListeningProcess() {
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    close(told);
  }

  void awaitWord() const {
    char byte = 0;
    if (read(told, &byte, 1) != 1) std::abort();
  }

 private:
  pid_t process = 0;
  int told = -1;
};

double secondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

double timeOfBarePost(const ListeningProcess& listening, std::size_t round) {
  const objc::AutoreleasePool pool;
  auto* userInfo = static_cast<NSDictionary*>(base::objectOf(
      {{"identifier", address}, {"body", "Reply number " + std::to_string(round)}, {"brimIdentifier", "abcdefgh"}}));
  const auto start = Clock::now();
  NSDistributedNotificationCenter::defaultCenter()->post("BrimBenchNotification"_ns, userInfo);
  listening.awaitWord();
  return secondsSince(start);
}

void presentAndType(runner::Session& session, std::size_t round) {
  session.run({{"do", "present"}, {"section", "com.apple.MobileSMS"}, {"title", "Anna"}, {"thread", address}});
  session.run({{"do", "wait"}, {"seconds", 1}});
  session.run({{"do", "drag"}, {"by", {0, 200}}});
  session.run({{"do", "wait"}, {"seconds", 1}});
  session.run({{"do", "type"}, {"text", "Reply number " + std::to_string(round)}});
}

// From the return key until the home screen is told that the message is in the store.
double timeOfReply(runner::Session& session, std::size_t round) {
  presentAndType(session, round);
  const std::size_t before = base::eventCount("message");
  const auto start = Clock::now();
  session.run({{"do", "key"}, {"name", "return"}});
  while (base::eventCount("message") == before) {
    if (Clock::now() - start > longest) std::abort();
    std::this_thread::sleep_for(betweenLooks);
  }
  const double time = secondsSince(start);
  session.run({{"do", "wait"}, {"seconds", 7}});
  session.run({{"do", "log"}});
  return time;
}

// The first reply, which launches the app; then of each round the bare post and the reply.
Figures replyMany() {
  std::string pattern = (fs::temp_directory_path() / "brim-bench-XXXXXX").string();
  const fs::path folder = mkdtemp(pattern.data());
  const fs::path root = folder / "root";
  Figures figures;
  // So that looks are as frequent as they are meant to be.
  prctl(PR_SET_TIMERSLACK, 1000);
  {
    messages::ChatStore(root).addTo("iMessage;-;" + std::string(address), "Anna", {});
    const ListeningProcess listening(root);
    runner::Options options;
    options.root = root;
    runner::Session session(options);
    listening.awaitWord();
    figures.push_back(timeOfReply(session, 0));
    for (std::size_t round = 1; round <= rounds; ++round) {
      figures.push_back(timeOfBarePost(listening, round));
      figures.push_back(timeOfReply(session, round));
    }
  }
  fs::remove_all(folder);
  return figures;
}

// One of the fastest, which other work of the machine has not disturbed: several processes take turns here.
double undisturbed(Figures figures) {
  const auto tenth = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 10);
  std::nth_element(figures.begin(), tenth, figures.end());
  return *tenth;
}

}  // namespace

void measureReplying() {
  const Figures figures = inProcessOfItsOwn(&replyMany);
  Figures bare;
  Figures replies;
  for (std::size_t round = 1; round < figures.size(); round += 2) {
    bare.push_back(figures[round]);
    replies.push_back(figures[round + 1]);
  }
  const double reply = undisturbed(replies);
  const double notification = undisturbed(bare);
  report("from the return key to the store / a bare notification", reply / notification, 2.0);
  std::printf("  %.2f ms / %.2f ms; the first reply, which launches the Messages app, %.0f ms\n", reply * 1e3,
              notification * 1e3, figures.front() * 1e3);
}

}  // namespace bench
