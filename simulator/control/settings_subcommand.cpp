#include "simulator/control/settings_subcommand.hpp"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iostream>
#include <nlohmann/json.hpp>

#include "simulator/control/phone_connection.hpp"

namespace control {

namespace {

using Json = nlohmann::ordered_json;
using Arguments = std::span<const std::string>;

Json settingsOf(PhoneConnection& phone) {
  Json settings = executeOn(phone, {{"do", "settings"}})["settings"];
  if (settings.empty()) throw ControlError("the phone runs without Brim, so there are no settings");
  return settings;
}

Json currentValue(PhoneConnection& phone, const std::string& key) {
  const Json settings = settingsOf(phone);
  const auto found = settings.find(key);
  if (found == settings.end())
    throw ControlError("there is no setting " + key + "; list the settings with: ./brim settings list");
  return *found;
}

// Converts the text to the type of the setting's current value.
Json valueOfSetting(const std::string& text, const Json& current) {
  if (current.is_boolean()) {
    if (text == "true" || text == "false") return text == "true";
    throw ControlError("the value must be true or false, not " + text);
  }
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size())
    throw ControlError("the value must be an integer, not " + text);
  return number;
}

void setSetting(PhoneConnection& phone, const std::string& key, const Json& value) {
  executeOn(phone, {{"do", "set"}, {"key", key}, {"value", value}});
}

struct SettingsAction {
  const char* name;
  std::size_t arguments;
  void (*execute)(PhoneConnection& phone, Arguments arguments);
};

constexpr SettingsAction settingsActions[] = {
    {"list", 0,
     [](PhoneConnection& phone, Arguments) {
       const Json settings = settingsOf(phone);
       for (const auto& [key, value] : settings.items()) std::cout << key << "=" << value.dump() << "\n";
     }},
    {"get", 1,
     [](PhoneConnection& phone, Arguments arguments) {
       std::cout << currentValue(phone, arguments[0]).dump() << "\n";
     }},
    {"set", 2,
     [](PhoneConnection& phone, Arguments arguments) {
       setSetting(phone, arguments[0], valueOfSetting(arguments[1], currentValue(phone, arguments[0])));
     }},
    {"reset", 1,
     [](PhoneConnection& phone, Arguments arguments) {
       currentValue(phone, arguments[0]);
       setSetting(phone, arguments[0], nullptr);
     }},
};

}  // namespace

int executeOnSettings(const ControlOptions& options, Arguments arguments) {
  const auto* const action = std::ranges::find(settingsActions, arguments[0], &SettingsAction::name);
  if (action == std::end(settingsActions) || action->arguments != arguments.size() - 1)
    throw ControlError("the arguments of settings are: list, get KEY, set KEY VALUE or reset KEY");
  PhoneConnection phone(options.root);
  action->execute(phone, arguments.subspan(1));
  return 0;
}

}  // namespace control
