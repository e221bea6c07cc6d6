#include "simulator/springboard/bulletin_socket.hpp"

#include <sys/socket.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <list>
#include <nlohmann/json.hpp>
#include <system_error>
#include <utility>

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/local_socket.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/host/event_log.hpp"
#include "simulator/springboard/banner_presenter.hpp"
#include "simulator/springboard/notification_description.hpp"
#include "simulator/springboard/notification_dispatcher.hpp"

namespace springboard {

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

constexpr const char* socketName = "bulletins.socket";
// Who sends more has something else in mind.
constexpr std::size_t longestBulletin = 16 << 20;

fs::path folderIn(const fs::path& root) { return root / "var/mobile/Library/SpringBoard"; }

struct Sender {
  foundation::Descriptor socket;
  std::string received;
};

std::list<Sender>& senders() {
  static auto& all = *new std::list<Sender>;
  return all;
}

std::string textIn(const Json& bulletin, const char* key) {
  return bulletin.contains(key) && bulletin[key].is_string() ? bulletin[key].get<std::string>() : "";
}

void present(const std::string& line) {
  const objc::AutoreleasePool pool;
  const Json bulletin = Json::parse(line, nullptr, false);
  if (!bulletin.is_object()) return;
  NotificationDescription description;
  description.section = textIn(bulletin, "section");
  description.thread = textIn(bulletin, "thread");
  description.title = textIn(bulletin, "title");
  description.message = textIn(bulletin, "message");
  NCNotificationDispatcher::shared()->post(makeRequest(description, nullptr));
  host::recordEvent("banner", {{"controller", bannerCount()}, {"section", description.section}});
}

void drop(std::list<Sender>::iterator sender) {
  foundation::unwatchDescriptor(sender->socket.get());
  senders().erase(sender);
}

// A bulletin is whole when its sender has nothing more to say.
void readFrom(std::list<Sender>::iterator sender) {
  char buffer[65536];
  const ssize_t size = recv(sender->socket.get(), buffer, sizeof buffer, MSG_DONTWAIT);
  if (size > 0) {
    sender->received.append(buffer, static_cast<std::size_t>(size));
    if (sender->received.size() > longestBulletin) drop(sender);
    return;
  }
  if (size < 0 && errno == EAGAIN) return;
  const std::string whole = std::move(sender->received);
  drop(sender);
  if (size == 0) present(whole);
}

void acceptSender(const foundation::Descriptor& listening) {
  foundation::Descriptor accepted = foundation::acceptFrom(listening);
  if (!accepted.isOpen()) return;
  const auto sender = senders().insert(senders().end(), {std::move(accepted), {}});
  foundation::watchDescriptor(sender->socket.get(), [sender] { readFrom(sender); });
}

}  // namespace

void listenForBulletins() {
  const fs::path folder = folderIn(foundation::root());
  std::error_code error;
  fs::create_directories(folder, error);
  static const auto& listening = *new foundation::Descriptor(foundation::listenIn(folder, socketName));
  if (listening.isOpen()) {
    foundation::watchDescriptor(listening.get(), [] { acceptSender(listening); });
  } else {
    std::fprintf(stderr, "%s: no bulletins of other processes will be shown: %s\n", folder.c_str(),
                 std::strerror(errno));
  }
}

bool sendBulletin(const fs::path& root, const Bulletin& bulletin) {
  const foundation::Descriptor socket = foundation::connectIn(folderIn(root), socketName);
  const Json line = {{"section", bulletin.section},
                     {"thread", bulletin.thread},
                     {"title", bulletin.title},
                     {"message", bulletin.message}};
  return socket.isOpen() && foundation::sendAll(socket, line.dump(-1, ' ', true, Json::error_handler_t::replace));
}

}  // namespace springboard
