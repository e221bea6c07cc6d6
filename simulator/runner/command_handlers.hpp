// The commands of scripts: the name, the fields and the function of each command. Main thread.
#pragma once

#include <nlohmann/json.hpp>
#include <span>
#include <stdexcept>
#include <string>

namespace runner {

using Json = nlohmann::ordered_json;

// Thrown if a command cannot be executed. what() states the error and the expected input.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A type of field, which determines the values that the field accepts.
struct FieldType {
  const char* description;  // a noun phrase that completes the sentence "The field must be …"
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
  // Executes the command. All its fields are known and their values have been checked. Returns an object whose members
  // are added to {"ok":true}, or null. Throws CommandError.
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
// A point [x,y].
extern const FieldType point;
// The value of a preference. Null is accepted.
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

// The tables of commands. Each table is defined in the source file of the same name.
std::span<const Command> presentingCommands();
std::span<const Command> touchCommands();
std::span<const Command> phoneCommands();
std::span<const Command> timeCommands();
std::span<const Command> inspectionCommands();
std::span<const Command> recordingCommands();

// Checks the fields and executes the command. Returns {"ok":true, …} or {"ok":false,"error": …}. Never throws.
Json executeCommand(const Json& command);

// Returns the part of the --help text that describes the commands: the name, the fields and the description of each
// command. Optional fields are in brackets.
std::string commandHelp();

}  // namespace runner
