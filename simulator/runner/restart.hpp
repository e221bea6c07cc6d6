// Restarts a live phone, for example as another device. The process executes its program again, because the classes of
// the Objective-C runtime depend on the options and cannot be removed. Main thread.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "simulator/foundation/descriptor.hpp"
#include "simulator/runner/springboard_options.hpp"

namespace runner {

// What a phone passes to the phone that replaces it. The descriptors are closed if there is no previous phone.
struct Inheritance {
  foundation::FileDescriptor lock;       // the lock of the root
  foundation::FileDescriptor listening;  // the control socket; new connections wait until the phone accepts them
  nlohmann::ordered_json notifications = nlohmann::ordered_json::array();
};

// The changes that a restart makes. An option without a value does not change.
struct OptionChanges {
  std::optional<std::string> device;
  std::optional<std::string> system;
  std::optional<std::string> locale;
};

// Allows this phone, which was started with these options, to be restarted.
void allowRestarts(const Options& options);
// Requests the termination and restart of this phone. The appearance does not change. If restarts are not allowed or a
// value is invalid, requests nothing and returns a message for the user.
std::optional<std::string> requestRestart(const OptionChanges& changes);
// Returns the options of the requested restart. Null if there was no request.
const Options* requestedRestart();

// Returns what the phone has inherited. Call this once, when the process starts.
Inheritance takeInheritance();
// Executes the program again. Returns only if this fails, and then sets errno.
void executeAgain(const Options& options, const Inheritance& inheritance);

}  // namespace runner
