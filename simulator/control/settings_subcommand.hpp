// The subcommand `settings` of `phone_control`, which prints and changes the settings of Brim. Main thread.
#pragma once

#include <span>
#include <string>

#include "simulator/control/subcommands.hpp"

namespace control {

// Executes an action: list, get KEY, set KEY VALUE or reset KEY. Returns the exit status. Throws ControlError and
// ConnectionError.
int executeOnSettings(const ControlOptions& options, std::span<const std::string> arguments);

}  // namespace control
