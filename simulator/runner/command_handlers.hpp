// The script's commands: for each command its name, its fields and the function that executes it. Main thread.
#pragma once

#include <nlohmann/json.hpp>
#include <span>
#include <stdexcept>
#include <string>

namespace runner {

using Json = nlohmann::ordered_json;

// A command cannot be executed. what() states the error and the expected input.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The values that a field accepts.
struct FieldType {
  const char* description;  // completes the phrase "must be …"
  bool (*accepts)(const Json& value);
};

enum class Presence { Optional, Required };

struct Field {
  const char* name;
  const FieldType& type;
  Presence presence = Presence::Optional;
};

struct Command {
  const char* name;
  std::span<const Field> fields;
  // Called only with known fields whose values have been checked. Returns an object whose members are added to
  // {"ok":true}, or null. Throws CommandError.
  Json (*execute)(const Json& command);
  const char* description;
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
// The value of a preference, including null.
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

// The tables of commands. Each is defined in the file of the same name.
std::span<const Command> presentingCommands();
std::span<const Command> touchCommands();
std::span<const Command> phoneCommands();
std::span<const Command> timeCommands();
std::span<const Command> inspectionCommands();

// Checks the fields and executes the command. Returns {"ok":true, …} or {"ok":false,"error": …}. Never throws.
Json executeCommand(const Json& command);

// The text that --help prints: each command with its fields, the optional ones in brackets, and its description.
std::string commandHelp();

}  // namespace runner
