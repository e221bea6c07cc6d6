#include "simulator/runner/session.hpp"

#include <utility>

#include "objc/autorelease_pool.hpp"
#include "simulator/base/json_text.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/phone_startup.hpp"
#include "simulator/springboard/services/bulletin_socket.hpp"
#include "simulator/springboard/services/messages_process.hpp"

namespace runner {

namespace {

Json failure(const std::string& reason) {
  return {{"ok", false}, {"error", reason + R"(; a line must be one JSON object, such as {"do":"wait","seconds":1})"}};
}

// Truncates the error in an answer if it quotes a long text from the command.
Json withShortError(Json answer) {
  constexpr std::size_t maxErrorBytes = 4096;
  const auto error = answer.find("error");
  if (error == answer.end() || !error->is_string()) return answer;
  std::string& text = error->get_ref<std::string&>();
  if (text.size() <= maxErrorBytes) return answer;
  const auto isInsideCharacter = [&text](std::size_t index) { return (text[index] & 0xC0) == 0x80; };
  std::size_t end = maxErrorBytes;
  while (end > 0 && isInsideCharacter(end)) --end;
  text.resize(end);
  text += "…";
  return answer;
}

}  // namespace

Session::Session(const Options& options, foundation::FileDescriptor lock)
    : lock_(startPhone(options, std::move(lock))) {}

Session::~Session() {
  springboard::stopListeningForBulletins();
  springboard::endMessages();
}

Json Session::run(const Json& command) {
  const objc::AutoreleasePool pool;
  Json answer = executeCommand(command);
  foundation::drainMainQueue();
  return withShortError(std::move(answer));
}

Json Session::runLine(std::string_view line) {
  Json command;
  try {
    command = base::parseJson(line);
  } catch (const base::JsonTextError& error) {
    return withShortError(failure(error.what()));
  }
  return run(command);
}

}  // namespace runner
