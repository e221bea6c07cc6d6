#include "simulator/process/bulletin_message.hpp"

#include <signal.h>

#include <cerrno>
#include <charconv>
#include <nlohmann/json.hpp>
#include <string_view>
#include <system_error>
#include <vector>

#include "simulator/base/json_text.hpp"
#include "simulator/foundation/local_socket.hpp"

namespace process {

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

std::string stringMember(const Json& bulletin, const char* key) {
  return bulletin.contains(key) && bulletin[key].is_string() ? bulletin[key].get<std::string>() : "";
}

constexpr std::string_view socketPrefix = "bulletins.";
constexpr std::string_view socketSuffix = ".socket";

// Returns the process identifier that the name of a socket contains. Returns 0 if the file is not such a socket.
pid_t ownerOf(std::string_view name) {
  if (!name.starts_with(socketPrefix) || !name.ends_with(socketSuffix)) return 0;
  pid_t process = 0;
  const char* const digits = name.data() + socketPrefix.size();
  const auto [end, error] = std::from_chars(digits, name.data() + name.size(), process);
  return error == std::errc() && socketSuffix == end && process > 0 ? process : 0;
}

// Returns the process identifiers of the home screens that have a socket in the root.
std::vector<pid_t> socketOwners(const fs::path& root) {
  std::vector<pid_t> owners;
  std::error_code error;
  for (fs::directory_iterator entry(bulletinFolder(root), error), end; !error && entry != end; entry.increment(error))
    if (const pid_t process = ownerOf(entry->path().filename().native()); process > 0) owners.push_back(process);
  return owners;
}

}  // namespace

std::string bulletinSocketOf(pid_t process) {
  return std::string(socketPrefix) + std::to_string(process) + std::string(socketSuffix);
}

void removeStaleBulletinSockets(const fs::path& root) {
  std::error_code error;
  for (const pid_t process : socketOwners(root))
    if (kill(process, 0) != 0 && errno == ESRCH) fs::remove(bulletinFolder(root) / bulletinSocketOf(process), error);
}

fs::path bulletinFolder(const fs::path& root) { return root / "var/mobile/Library/SpringBoard"; }

bool sendBulletin(const fs::path& root, const Bulletin& bulletin) {
  const Json message = {{"section", bulletin.section},
                        {"thread", bulletin.thread},
                        {"title", bulletin.title},
                        {"message", bulletin.message}};
  const std::string line = message.dump(-1, ' ', true, Json::error_handler_t::replace);
  bool isSent = false;
  for (const pid_t process : socketOwners(root)) {
    const foundation::FileDescriptor socket =
        foundation::connectIn(bulletinFolder(root), bulletinSocketOf(process).c_str());
    isSent |= socket.isOpen() && foundation::sendAll(socket, line);
  }
  return isSent;
}

std::optional<Bulletin> parseBulletin(const std::string& text) {
  try {
    const Json bulletin = base::parseJson(text);
    if (!bulletin.is_object()) return std::nullopt;
    return Bulletin{stringMember(bulletin, "section"), stringMember(bulletin, "thread"),
                    stringMember(bulletin, "title"), stringMember(bulletin, "message")};
  } catch (const base::JsonTextError&) {
    return std::nullopt;
  }
}

}  // namespace process
