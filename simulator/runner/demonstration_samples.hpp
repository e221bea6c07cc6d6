// The sample notifications of the demonstration.
#pragma once

#include <string>
#include <vector>

#include "simulator/runner/command_handlers.hpp"

namespace runner {

enum class PictureSource { None, Phone, Web };

struct Sample {
  const char* name;
  PictureSource pictureSource;
  Json notification;
  // The commands that are executed after the banner is presented and before the picture is taken.
  std::vector<Json> steps = {};
  // The commands that are executed before the banner is presented, and the commands that undo their changes.
  std::vector<Json> preparation = {};
  std::vector<Json> restoration = {};
  // The text that is typed into the banner before the picture is taken, and sent afterwards. Null if there is no reply.
  const char* reply = nullptr;
};

// Returns a command that waits for this number of seconds of the stepped clock.
Json waitStep(double seconds);

// Returns all samples, in order. `address` is the address of the demonstration's web server.
std::vector<Sample> samples(const std::string& address);

}  // namespace runner
