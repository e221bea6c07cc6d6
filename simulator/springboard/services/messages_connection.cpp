#include "simulator/springboard/services/messages_connection.hpp"

#include <poll.h>
#include <sys/socket.h>

#include <condition_variable>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "objc/autorelease_pool.hpp"
#include "simulator/base/event_log.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/local_socket.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/notification_daemon.hpp"
#include "simulator/messages/report_service.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"

namespace springboard {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* messagesIdentifier = "com.apple.MobileSMS";

// Nobody has to be told of what was read. Its notifications have the address within the chat's identifier for thread.
void withdrawConversation(const std::string& chat) {
  const objc::AutoreleasePool pool;
  const std::string address = chat.substr(chat.rfind(';') + 1);
  for (const auto& request : NCNotificationDispatcher::shared()->list().all())
    if (keyOf(request).section == messagesIdentifier && base::textOf(request->threadIdentifier()) == address)
      NCNotificationDispatcher::shared()->withdraw(request);
}

void record(std::string_view text) {
  Json event = Json::parse(text, nullptr, false);
  if (!event.is_object() || !event.contains("event") || !event["event"].is_string()) return;
  const std::string name = event["event"];
  event.erase("event");
  if (name == "read" && event.contains("chat") && event["chat"].is_string())
    foundation::onMainThreadFromOutside([chat = event["chat"].get<std::string>()] { withdrawConversation(chat); });
  base::recordEvent(name, event);
}

}  // namespace

struct MessagesConnection::Line {
  foundation::Descriptor socket;
  std::mutex mutex;
  std::condition_variable changed;
  std::size_t answers = 0;
  bool ended = false;

  void read();
  void take(std::string_view text);
  void end();
};

void MessagesConnection::Line::take(std::string_view text) {
  if (text != messages::readyReply) {
    record(text);
    return;
  }
  const std::scoped_lock lock(mutex);
  ++answers;
  changed.notify_all();
}

void MessagesConnection::Line::end() {
  const std::scoped_lock lock(mutex);
  ended = true;
  changed.notify_all();
}

void MessagesConnection::Line::read() {
  std::string pending;
  char buffer[65536];
  for (ssize_t size = recv(socket.get(), buffer, sizeof buffer, 0); size > 0;
       size = recv(socket.get(), buffer, sizeof buffer, 0)) {
    std::size_t searched = pending.size();
    pending.append(buffer, static_cast<std::size_t>(size));
    std::size_t begin = 0;
    for (std::size_t end = pending.find('\n', searched); end != std::string::npos; end = pending.find('\n', begin)) {
      take(std::string_view(pending).substr(begin, end - begin));
      begin = end + 1;
    }
    pending.erase(0, begin);
  }
  end();
}

MessagesConnection::MessagesConnection(const std::filesystem::path& folder) : line(std::make_shared<Line>()) {
  line->socket = foundation::connectIn(folder, messages::serviceSocket);
  if (line->socket.isOpen()) {
    std::thread([kept = line] { kept->read(); }).detach();
  } else {
    line->end();
  }
}

MessagesConnection::~MessagesConnection() { shutdown(line->socket.get(), SHUT_RDWR); }

bool MessagesConnection::isReady(TimePoint deadline) {
  if (hasEnded()) return false;
  if (foundation::daemonRuns(daemon)) return true;
  // Before the question: the answer speaks of this daemon if it is there still.
  foundation::Descriptor current = foundation::watchDaemon();
  if (!answers(deadline)) return false;
  daemon = std::move(current);
  return true;
}

bool MessagesConnection::answers(TimePoint deadline) {
  std::unique_lock lock(line->mutex);
  const std::size_t before = line->answers;
  if (line->ended || !foundation::sendAll(line->socket, "\n")) return false;
  line->changed.wait_until(lock, deadline, [&] { return line->ended || line->answers != before; });
  return line->answers != before;
}

// The thread that reads learns of the end a moment later.
bool MessagesConnection::hasEnded() const {
  pollfd end = {line->socket.get(), POLLRDHUP, 0};
  return !line->socket.isOpen() || poll(&end, 1, 0) != 0;
}

}  // namespace springboard
