// The script commands of the composer: the conversion between its fields and commands, and its presets. Main thread.
#pragma once

#include <string>
#include <vector>

#include "simulator/runner/command_handlers.hpp"

namespace phone_display {

using runner::Json;

// A persistent banner is shown until the user dismisses it.
enum class Persistence { Temporary, Persistent };

// The contents of the composer. The command omits empty texts.
struct ComposerFields {
  std::string application = {};  // the bundle identifier
  std::string title = {};
  std::string subtitle = {};
  std::string text = {};
  // The titles of the actions, separated by commas. An action whose title ends with "…" accepts text.
  std::string actions = {};
  std::string picture = {};  // the path of a PNG or JPEG file
  Persistence persistence = Persistence::Temporary;
  // The command from which the fields were filled. The new command copies the members that have no field.
  Json base = Json::object();
};

Json commandOf(const ComposerFields& fields);
ComposerFields fieldsOf(const Json& command);

// A command and the time, in seconds, between the start of the preset and the command.
struct PresetStep {
  double seconds = 0;
  Json command;
};

struct Preset {
  std::string name;
  std::vector<PresetStep> steps;  // never empty
};

// Returns the presets in the order of their menu.
std::vector<Preset> presets();

}  // namespace phone_display
