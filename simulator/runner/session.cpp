#include "simulator/runner/session.hpp"

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
  return answer;
}

Json Session::runLine(std::string_view line) {
  Json command;
  try {
    command = base::parseJson(line);
  } catch (const base::JsonTextError& error) {
    return failure(error.what());
  }
  return run(command);
}

}  // namespace runner
