#include "simulator/base/json_text.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

namespace base {

namespace {

using Json = nlohmann::ordered_json;

constexpr int maxNesting = 200;
// The maximum number of members in all objects of a text. The JSON library preserves the order of the members, so it
// compares each member with all others of its object.
constexpr int maxMembers = 10'000;

struct Shape {
  int nesting = 0;
  int members = 0;
};

Shape shapeOf(std::string_view text) {
  Shape shape;
  int depth = 0;
  bool inString = false;
  for (std::size_t index = 0; index < text.size(); ++index) {
    const char character = text[index];
    if (inString && character == '\\') {
      ++index;
    } else if (character == '"') {
      inString = !inString;
    } else if (!inString && (character == '{' || character == '[')) {
      shape.nesting = std::max(shape.nesting, ++depth);
    } else if (!inString && (character == '}' || character == ']')) {
      --depth;
    } else if (!inString && character == ':') {
      ++shape.members;
    }
  }
  return shape;
}

// Returns the JSON library's message without its prefix, which is the internal name of the exception.
std::string reasonOf(const Json::exception& error) {
  std::string reason = error.what();
  if (const std::size_t name = reason.find("] "); name != std::string::npos) reason.erase(0, name + 2);
  return reason;
}

}  // namespace

Json parseJson(std::string_view text) try {
  const Shape shape = shapeOf(text);
  if (shape.nesting > maxNesting)
    throw JsonTextError("nested more than " + std::to_string(maxNesting) + " levels deep");
  if (shape.members > maxMembers)
    throw JsonTextError("more than " + std::to_string(maxMembers) + " members in the objects of one text");
  // A zero byte is rejected, because the parser would ignore it and all text after it.
  if (text.find('\0') != std::string_view::npos) throw JsonTextError("not JSON: it contains a zero byte");
  return Json::parse(text);
} catch (const Json::exception& error) {
  throw JsonTextError("not JSON: " + reasonOf(error));
}

}  // namespace base
