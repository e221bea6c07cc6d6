// A home screen that obeys commands: the process of `springboard`, started and driven in-process.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

#include "simulator/process/process_start.hpp"
#include "simulator/runner/options.hpp"

namespace runner {

// A phone that has been started, on a stepped clock. The runtime's classes belong to the process, so a process has one
// session at most and it ends with the process. Main thread, before any other use of Foundation.
class Session {
 public:
  // Throws StartError.
  explicit Session(const Options& options);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  // Obeys one command, {"do": NAME, …}. Answers {"ok":true, …} or {"ok":false,"error": …}; never throws.
  nlohmann::ordered_json run(const nlohmann::ordered_json& command);

  // The same for a line of text. What is not JSON is answered with the position of the mistake.
  nlohmann::ordered_json runLine(std::string_view line);
};

}  // namespace runner
