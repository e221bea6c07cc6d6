#include "simulator/springboard/services/bulletin_socket.hpp"

#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <list>
#include <system_error>
#include <utility>

#include "simulator/foundation/local_socket.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/springboard/services/notification_description.hpp"

namespace springboard {

namespace {

namespace fs = std::filesystem;

// The maximum size of a message. If a sender exceeds it, its connection is closed.
constexpr std::size_t maxBulletinBytes = 16 << 20;
// The maximum number of connections, each of which uses a descriptor. A further connection closes the oldest one.
constexpr std::size_t maxSenders = 128;

struct Sender {
  foundation::FileDescriptor socket;
  std::string received;
};

std::list<Sender>& senders() {
  static auto& all = *new std::list<Sender>;
  return all;
}

std::function<void(const process::Bulletin&)>& receiver() {
  static auto& function = *new std::function<void(const process::Bulletin&)>;
  return function;
}

foundation::FileDescriptor& listening() {
  static auto& socket = *new foundation::FileDescriptor;
  return socket;
}

void deliver(const std::string& text) {
  if (auto bulletin = process::parseBulletin(text))
    foundation::onMainThreadForRequest([bulletin = std::move(*bulletin)] { receiver()(bulletin); });
}

void drop(std::list<Sender>::iterator sender) {
  foundation::unwatchDescriptor(sender->socket.get());
  senders().erase(sender);
}

// Reads a part of a bulletin. The bulletin is complete when its sender has closed the connection.
void readFrom(std::list<Sender>::iterator sender) {
  char buffer[65536];
  const ssize_t size = recv(sender->socket.get(), buffer, sizeof buffer, MSG_DONTWAIT);
  if (size > 0) {
    sender->received.append(buffer, static_cast<std::size_t>(size));
    if (sender->received.size() > maxBulletinBytes) drop(sender);
    return;
  }
  if (size < 0 && errno == EAGAIN) return;
  const std::string message = std::move(sender->received);
  drop(sender);
  if (size == 0) deliver(message);
}

void acceptSender(const foundation::FileDescriptor& listening) {
  foundation::FileDescriptor accepted = foundation::acceptFrom(listening);
  if (!accepted.isOpen()) return;
  if (senders().size() == maxSenders) drop(senders().begin());
  const auto sender = senders().insert(senders().end(), {std::move(accepted), {}});
  foundation::watchDescriptor(sender->socket.get(), [sender] { readFrom(sender); });
}

}  // namespace

void stopListeningForBulletins() {
  if (!listening().isOpen()) return;
  foundation::unwatchDescriptor(listening().get());
  listening() = foundation::FileDescriptor();
  std::error_code error;
  fs::remove(process::bulletinFolder(foundation::root()) / process::bulletinSocketOf(getpid()), error);
}

void listenForBulletins(std::function<void(const process::Bulletin&)> present) {
  receiver() = std::move(present);
  const fs::path folder = process::bulletinFolder(foundation::root());
  std::error_code error;
  fs::create_directories(folder, error);
  process::removeStaleBulletinSockets(foundation::root());
  listening() = foundation::listenIn(folder, process::bulletinSocketOf(getpid()).c_str());
  if (listening().isOpen()) {
    foundation::watchDescriptor(listening().get(), [] { acceptSender(listening()); });
  } else {
    std::fprintf(stderr, "%s: cannot listen for notifications of other processes: %s\n", folder.c_str(),
                 std::strerror(errno));
  }
}

}  // namespace springboard
