// A home screen that executes script commands. The program `springboard` and the tests use it.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <utility>

#include "simulator/foundation/descriptor.hpp"
#include "simulator/process/process_start.hpp"
#include "simulator/runner/springboard_options.hpp"

namespace runner {

// A running home screen. The options select its clock. A process can create only one session, because the classes of
// the Objective-C runtime belong to the process. Create it before any other use of Foundation. Main thread.
class Session {
 public:
  // Starts the home screen. `lock` is the lock of the root. If it is closed, the session acquires the lock itself.
  // Throws StartError.
  explicit Session(const Options& options, foundation::FileDescriptor lock = {});
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  // Executes one command, {"do": NAME, …}. Returns {"ok":true, …} or {"ok":false,"error": …}. Never throws.
  nlohmann::ordered_json run(const nlohmann::ordered_json& command);

  // Parses and executes a line of text. For invalid JSON, the error contains the position of the syntax error.
  nlohmann::ordered_json runLine(std::string_view line);

  // Returns the lock of the root of a live phone. The session no longer owns it.
  foundation::FileDescriptor takeLock() { return std::move(lock_); }

 private:
  foundation::FileDescriptor lock_;
};

}  // namespace runner
