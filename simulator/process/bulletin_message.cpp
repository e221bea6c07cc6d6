#include "simulator/process/bulletin_message.hpp"

#include <nlohmann/json.hpp>

#include "simulator/foundation/local_socket.hpp"

namespace process {

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

std::string stringMember(const Json& bulletin, const char* key) {
  return bulletin.contains(key) && bulletin[key].is_string() ? bulletin[key].get<std::string>() : "";
}

}  // namespace

fs::path bulletinFolder(const fs::path& root) { return root / "var/mobile/Library/SpringBoard"; }

bool sendBulletin(const fs::path& root, const Bulletin& bulletin) {
  const foundation::FileDescriptor socket = foundation::connectIn(bulletinFolder(root), bulletinSocket);
  const Json line = {{"section", bulletin.section},
                     {"thread", bulletin.thread},
                     {"title", bulletin.title},
                     {"message", bulletin.message}};
  return socket.isOpen() && foundation::sendAll(socket, line.dump(-1, ' ', true, Json::error_handler_t::replace));
}

std::optional<Bulletin> parseBulletin(const std::string& text) {
  const Json bulletin = Json::parse(text, nullptr, false);
  if (!bulletin.is_object()) return std::nullopt;
  return Bulletin{stringMember(bulletin, "section"), stringMember(bulletin, "thread"), stringMember(bulletin, "title"),
                  stringMember(bulletin, "message")};
}

}  // namespace process
