#include "simulator/base/json_text.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

namespace base {

namespace {

using Json = nlohmann::ordered_json;

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

}  // namespace

Json parseJson(std::string_view text) try {
  if (nestingOf(text) > maxNesting)
    throw JsonTextError("nested more than " + std::to_string(maxNesting) + " levels deep");
  // A zero byte is rejected, because the parser would ignore it and all text after it.
  if (text.find('\0') != std::string_view::npos) throw JsonTextError("not JSON: it contains a zero byte");
  return Json::parse(text);
} catch (const Json::exception& error) {
  throw JsonTextError("not JSON: " + reasonOf(error));
}

}  // namespace base
