// Commands of the script: what each is called, which fields it takes, and the function that obeys it.
#pragma once

#include <nlohmann/json.hpp>
#include <span>
#include <stdexcept>
#include <string>

namespace runner {

using Json = nlohmann::ordered_json;

// A command cannot be obeyed; `what` says what is wrong and what would be right.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What a field may hold.
struct FieldType {
  const char* wanted;  // completes "… takes "
  bool (*fits)(const Json& value);
};

enum class Need { Optional, Required };

struct Field {
  const char* name;
  const FieldType& type;
  Need need = Need::Optional;
};

struct Command {
  const char* name;
  std::span<const Field> fields;
  // Called with fields that are known and of their types. Answers an object that joins {"ok":true}, or null. Throws
  // CommandError.
  Json (*execute)(const Json& command);
  const char* meaning;
};

namespace field {

extern const FieldType text;
extern const FieldType nonEmptyText;
extern const FieldType boolean;
extern const FieldType number;
extern const FieldType integer;
extern const FieldType object;
// [x,y]
extern const FieldType point;
// What a preference may hold, null included.
extern const FieldType preference;
extern const FieldType booleanOrNull;

}  // namespace field

template <std::size_t count>
bool isOneOf(const Json& value, const char* const (&choices)[count]) {
  if (!value.is_string()) return false;
  for (const char* choice : choices)
    if (value.get_ref<const std::string&>() == choice) return true;
  return false;
}

// The tables of commands, one an area.
std::span<const Command> presentingCommands();
std::span<const Command> touchCommands();
std::span<const Command> phoneCommands();
std::span<const Command> timeCommands();
std::span<const Command> inspectionCommands();

// Checks the fields and obeys. Answers {"ok":true, …} or {"ok":false,"error": …}; never throws.
Json executeCommand(const Json& command);

// One line a command: its fields, the optional ones in brackets, and its meaning.
std::string commandHelp();

}  // namespace runner
