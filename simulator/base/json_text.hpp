// Parsing of JSON texts, which are untrusted input. Any thread.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <stdexcept>
#include <string_view>

namespace base {

// Thrown for a text that is not one JSON value. what() states the error, with its position if it is a syntax error.
class JsonTextError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Parses a JSON text. Throws JsonTextError if the text is not valid JSON or contains a zero byte, if the nesting of the
// value would exhaust the stack of recursive functions, or if its objects have so many members that parsing would take
// seconds.
nlohmann::ordered_json parseJson(std::string_view text);

}  // namespace base
