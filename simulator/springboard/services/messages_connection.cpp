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
#include "simulator/messages/home_screen_service.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"

namespace springboard {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* messagesIdentifier = "com.apple.MobileSMS";

// Removes the notifications of a conversation that has been read. The thread identifier of these notifications is the
// address at the end of the chat's identifier.
void withdrawConversation(const std::string& chat) {
  const objc::AutoreleasePool pool;
  const std::string address = chat.substr(chat.rfind(';') + 1);
  for (const auto& request : NCNotificationDispatcher::shared()->list().all())
    if (keyOf(request).section == messagesIdentifier && base::textOf(request->threadIdentifier()) == address)
      NCNotificationDispatcher::shared()->withdraw(request);
}

void recordReportedEvent(std::string_view text) {
  Json event = Json::parse(text, nullptr, false);
  if (!event.is_object() || !event.contains("event") || !event["event"].is_string()) return;
  const std::string name = event["event"];
  event.erase("event");
  if (name == "read" && event.contains("chat") && event["chat"].is_string())
    foundation::onMainThreadForExternalEvent([chat = event["chat"].get<std::string>()] { withdrawConversation(chat); });
  base::recordEvent(name, event);
}

}  // namespace

// The state that the connection shares with the thread that reads the socket.
struct MessagesConnection::Channel {
  foundation::FileDescriptor socket;
  std::mutex mutex;  // protects replyCount and hasEnded
  std::condition_variable changed;
  std::size_t replyCount = 0;
  bool hasEnded = false;

  void read();
  void handleLine(std::string_view line);
  void end();
};

void MessagesConnection::Channel::handleLine(std::string_view line) {
  if (line != messages::readyReply) {
    recordReportedEvent(line);
    return;
  }
  const std::scoped_lock lock(mutex);
  ++replyCount;
  changed.notify_all();
}

void MessagesConnection::Channel::end() {
  const std::scoped_lock lock(mutex);
  hasEnded = true;
  changed.notify_all();
}

void MessagesConnection::Channel::read() {
  std::string pending;
  char buffer[65536];
  for (ssize_t size = recv(socket.get(), buffer, sizeof buffer, 0); size > 0;
       size = recv(socket.get(), buffer, sizeof buffer, 0)) {
    std::size_t searched = pending.size();
    pending.append(buffer, static_cast<std::size_t>(size));
    std::size_t begin = 0;
    for (std::size_t end = pending.find('\n', searched); end != std::string::npos; end = pending.find('\n', begin)) {
      handleLine(std::string_view(pending).substr(begin, end - begin));
      begin = end + 1;
    }
    pending.erase(0, begin);
  }
  end();
}

MessagesConnection::MessagesConnection(const std::filesystem::path& folder) : channel_(std::make_shared<Channel>()) {
  channel_->socket = foundation::connectIn(folder, messages::serviceSocket);
  if (channel_->socket.isOpen()) {
    std::thread([channel = channel_] { channel->read(); }).detach();
  } else {
    channel_->end();
  }
}

MessagesConnection::~MessagesConnection() { shutdown(channel_->socket.get(), SHUT_RDWR); }

bool MessagesConnection::isReady(TimePoint deadline) {
  if (hasEnded()) return false;
  if (foundation::isDaemonRunning(daemon_)) return true;
  // Opens the descriptor before the query. If this daemon still runs after the app has replied, the reply is valid for
  // it.
  foundation::FileDescriptor current = foundation::watchDaemon();
  if (!awaitReply(deadline)) return false;
  daemon_ = std::move(current);
  return true;
}

bool MessagesConnection::awaitReply(TimePoint deadline) {
  std::unique_lock lock(channel_->mutex);
  const std::size_t before = channel_->replyCount;
  if (channel_->hasEnded || !foundation::sendAll(channel_->socket, "\n")) return false;
  channel_->changed.wait_until(lock, deadline, [&] { return channel_->hasEnded || channel_->replyCount != before; });
  return channel_->replyCount != before;
}

// Polls the socket, because the reading thread may not have detected the end of the connection yet.
bool MessagesConnection::hasEnded() const {
  pollfd end = {channel_->socket.get(), POLLRDHUP, 0};
  return !channel_->socket.isOpen() || poll(&end, 1, 0) != 0;
}

}  // namespace springboard
