// The notifications of the demonstration.
#pragma once

#include <string>
#include <vector>

#include "simulator/runner/command_handlers.hpp"

namespace runner {

struct Sample {
  const char* name;
  Json notification;
  // What happens to the banner before its picture is taken.
  std::vector<Json> steps = {};
  // Puts back what the steps before the notification changed.
  std::vector<Json> preparation = {};
  std::vector<Json> restoration = {};
  // Typed into the banner before its picture is taken, and sent off after it. Null for none.
  const char* reply = nullptr;
};

// The step that lets so many seconds pass.
Json let(double seconds);

// Their senders are known to the demonstration's files and to its web server, whose address this is.
std::vector<Sample> samples(const std::string& address);

}  // namespace runner
