#include "simulator/runner/command_handlers.hpp"

#include <algorithm>
#include <vector>

namespace runner {

namespace {

bool isPoint(const Json& value) {
  return value.is_array() && value.size() == 2 && value[0].is_number() && value[1].is_number();
}

bool isPreference(const Json& value) {
  if (!value.is_structured()) return true;
  return std::ranges::none_of(value, [](const Json& member) { return member.is_null() || !isPreference(member); });
}

const std::vector<Command>& commandTable() {
  static const std::vector<Command> table = [] {
    std::vector<Command> all;
    for (const auto commands : {presentingCommands(), touchCommands(), phoneCommands(), timeCommands(),
                                inspectionCommands(), recordingCommands()})
      all.insert(all.end(), commands.begin(), commands.end());
    return all;
  }();
  return table;
}

template <class Entries>
std::string namesOf(const Entries& entries) {
  std::string names;
  for (const auto& entry : entries) names += (names.empty() ? "" : ", ") + std::string(entry.name);
  return names;
}

// Returns the value as text for a message. The text is truncated if it is long.
std::string shortText(const Json& value) {
  constexpr std::size_t maxLength = 60;
  std::string text = value.dump(-1, ' ', true, Json::error_handler_t::replace);
  if (text.size() > maxLength) text = text.substr(0, maxLength) + "…";
  return text;
}

const Command& findCommand(const Json& command) {
  if (!command.is_object() || !command.contains("do") || !command["do"].is_string())
    throw CommandError(R"(a command must be an object with a string "do", such as {"do":"wait","seconds":1})");
  const std::string& name = command["do"].get_ref<const std::string&>();
  for (const Command& candidate : commandTable())
    if (candidate.name == name) return candidate;
  throw CommandError("unknown command " + shortText(command["do"]) + "; the commands are " + namesOf(commandTable()));
}

const Field& findField(const Command& command, const std::string& name) {
  for (const Field& candidate : command.fields)
    if (candidate.name == name) return candidate;
  const std::string known = command.fields.empty() ? "it takes no fields" : "its fields are " + namesOf(command.fields);
  throw CommandError(std::string(command.name) + " has no field " + shortText(name) + "; " + known);
}

void checkFields(const Command& command, const Json& given) {
  const std::string name = command.name;
  for (const auto& [key, value] : given.items()) {
    if (key == "do") continue;
    const FieldType& type = findField(command, key).type;
    if (!type.accepts(value))
      throw CommandError("\"" + key + "\" of " + name + " must be " + type.description + ", not " + shortText(value));
  }
  for (const Field& candidate : command.fields)
    if (candidate.presence == Presence::Required && !given.contains(candidate.name))
      throw CommandError(name + " requires \"" + candidate.name + "\", " + candidate.type.description);
}

Json failure(const std::string& reason) { return {{"ok", false}, {"error", reason}}; }

}  // namespace

namespace field {

const FieldType text = {"a string", [](const Json& value) { return value.is_string(); }};
const FieldType nonEmptyText = {"a string that is not empty", [](const Json& value) {
                                  return value.is_string() && !value.get_ref<const std::string&>().empty();
                                }};
const FieldType boolean = {"true or false", [](const Json& value) { return value.is_boolean(); }};
const FieldType booleanOrNull = {"true, false or null",
                                 [](const Json& value) { return value.is_boolean() || value.is_null(); }};
const FieldType number = {"a number", [](const Json& value) { return value.is_number(); }};
const FieldType integer = {"an integer", [](const Json& value) { return value.is_number_integer(); }};
const FieldType object = {"an object", [](const Json& value) { return value.is_object(); }};
const FieldType point = {"[x,y], two numbers", &isPoint};
const FieldType preference = {"a string, number, boolean, array or object that contains no null, or null to remove it",
                              &isPreference};

}  // namespace field

Json executeCommand(const Json& given) try {
  const Command& command = findCommand(given);
  checkFields(command, given);
  Json reply = {{"ok", true}};
  const Json result = command.execute(given);
  if (!result.is_null()) reply.update(result);
  return reply;
} catch (const CommandError& error) {
  return failure(error.what());
} catch (const std::exception& error) {
  return failure(std::string("internal error of the simulator: ") + error.what());
}

std::string commandHelp() {
  std::string text = "script commands, one JSON object {\"do\":NAME, …} per line:\n";
  for (const Command& command : commandTable()) {
    std::string line = "  " + std::string(command.name);
    for (const Field& entry : command.fields)
      line +=
          entry.presence == Presence::Required ? std::string(" ") + entry.name : std::string(" [") + entry.name + "]";
    text += line + "\n      " + command.description + "\n";
  }
  return text;
}

}  // namespace runner
