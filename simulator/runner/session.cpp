#include "simulator/runner/session.hpp"

#include <algorithm>

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/phone_startup.hpp"
#include "simulator/springboard/services/messages_process.hpp"

namespace runner {

namespace {

// The maximum nesting depth of a command. Recursive functions that process deeper values would exhaust the stack.
constexpr int maxNesting = 200;

int nestingOf(std::string_view text) {
  int depth = 0;
  int deepest = 0;
  bool inString = false;
  for (std::size_t index = 0; index < text.size(); ++index) {
    const char character = text[index];
    if (inString && character == '\\') {
      ++index;
    } else if (character == '"') {
      inString = !inString;
    } else if (!inString && (character == '{' || character == '[')) {
      deepest = std::max(deepest, ++depth);
    } else if (!inString && (character == '}' || character == ']')) {
      --depth;
    }
  }
  return deepest;
}

// Returns the JSON library's message without its prefix, which is the internal name of the exception.
std::string reasonOf(const Json::exception& error) {
  std::string reason = error.what();
  if (const std::size_t name = reason.find("] "); name != std::string::npos) reason.erase(0, name + 2);
  return reason;
}

Json failure(const std::string& reason) {
  return {{"ok", false}, {"error", reason + R"(; a line must be one JSON object, such as {"do":"wait","seconds":1})"}};
}

}  // namespace

Session::Session(const Options& options) : lock_(startPhone(options)) {}

Session::~Session() { springboard::endMessages(); }

Json Session::run(const Json& command) {
  const objc::AutoreleasePool pool;
  Json answer = executeCommand(command);
  foundation::drainMainQueue();
  return answer;
}

Json Session::runLine(std::string_view line) {
  if (nestingOf(line) > maxNesting) return failure("nested more than " + std::to_string(maxNesting) + " levels deep");
  // A zero byte is rejected, because the parser would ignore it and all text after it.
  if (line.find('\0') != std::string_view::npos) return failure("not JSON: it contains a zero byte");
  try {
    return run(Json::parse(line));
  } catch (const Json::exception& error) {
    return failure("not JSON: " + reasonOf(error));
  }
}

}  // namespace runner
