// The notifications of the demonstration.
#pragma once

#include <string>
#include <vector>

#include "simulator/runner/command_handlers.hpp"

namespace runner {

struct Sample {
  const char* name;
  Json notification;
  // Commands between the presentation and the picture.
  std::vector<Json> steps = {};
  // Commands before the presentation, and the commands that undo their changes.
  std::vector<Json> preparation = {};
  std::vector<Json> restoration = {};
  // The text that is typed into the banner before the picture, and sent after it. Null for none.
  const char* reply = nullptr;
};

// A command that waits for so many seconds of the stepped clock.
Json waitStep(double seconds);

// All samples, in order. `address` is the address of the demonstration's web server.
std::vector<Sample> samples(const std::string& address);

}  // namespace runner
