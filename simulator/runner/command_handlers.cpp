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
    for (const auto commands :
         {presentingCommands(), touchCommands(), phoneCommands(), timeCommands(), inspectionCommands()})
      all.insert(all.end(), commands.begin(), commands.end());
    return all;
  }();
  return table;
}

template <class Entries>
std::string namesOf(const Entries& entries) {
  std::string names;
  for (const auto& entry : entries) names += (names.empty() ? "" : ", ") + std::string(entry.name);
  return names.empty() ? "none" : names;
}

const Command& findCommand(const Json& command) {
  if (!command.is_object() || !command.contains("do") || !command["do"].is_string())
    throw CommandError(R"(a command is an object with a string "do", such as {"do":"wait","seconds":1})");
  const std::string& name = command["do"].get_ref<const std::string&>();
  for (const Command& candidate : commandTable())
    if (candidate.name == name) return candidate;
  throw CommandError("unknown command \"" + name + "\"; there are " + namesOf(commandTable()));
}

// A value for people: long ones are cut.
std::string shown(const Json& value) {
  constexpr std::size_t longest = 60;
  std::string text = value.dump(-1, ' ', true, Json::error_handler_t::replace);
  if (text.size() > longest) text = text.substr(0, longest) + "…";
  return text;
}

const Field& findField(const Command& command, const std::string& name) {
  for (const Field& candidate : command.fields)
    if (candidate.name == name) return candidate;
  throw CommandError(std::string(command.name) + " has no field \"" + name + "\"; its fields are " +
                     namesOf(command.fields));
}

void checkFields(const Command& command, const Json& given) {
  const std::string name = command.name;
  for (const auto& [key, value] : given.items()) {
    if (key == "do") continue;
    const FieldType& type = findField(command, key).type;
    if (!type.fits(value))
      throw CommandError("\"" + key + "\" of " + name + " takes " + type.wanted + ", not " + shown(value));
  }
  for (const Field& wanted : command.fields)
    if (wanted.need == Need::Required && !given.contains(wanted.name))
      throw CommandError(name + " wants \"" + wanted.name + "\", " + wanted.type.wanted);
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
const FieldType preference = {"a string, number, boolean, array or object without null inside, or null to remove it",
                              &isPreference};

}  // namespace field

Json executeCommand(const Json& given) try {
  const Command& command = findCommand(given);
  checkFields(command, given);
  Json answer = {{"ok", true}};
  const Json result = command.execute(given);
  if (!result.is_null()) answer.update(result);
  return answer;
} catch (const CommandError& error) {
  return failure(error.what());
} catch (const std::exception& error) {
  return failure(std::string("the simulator failed: ") + error.what());
}

std::string commandHelp() {
  std::string text = "commands of a script, {\"do\":NAME, …} a line:\n";
  for (const Command& command : commandTable()) {
    std::string line = "  " + std::string(command.name);
    for (const Field& entry : command.fields)
      line += entry.need == Need::Required ? std::string(" ") + entry.name : std::string(" [") + entry.name + "]";
    text += line + "\n      " + command.meaning + "\n";
  }
  return text;
}

}  // namespace runner
