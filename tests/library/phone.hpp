// A simulated phone for a test. It has a temporary root and is started with the options and settings of the test. Only
// one phone can exist in a process.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "objc/autorelease_pool.hpp"
#include "simulator/runner/session.hpp"

namespace test {

using Json = nlohmann::ordered_json;

struct Setup {
  runner::Options options;
  // The settings that are stored in the preferences domain before the phone starts, by their keys.
  std::map<std::string, Json> settings;
};

class Phone {
 public:
  explicit Phone(Setup setup = {});
  ~Phone();

  // Executes a script command and returns its answer. The test fails if the command fails.
  Json run(const Json& command);
  // Executes a command that is allowed to fail, and returns its answer.
  Json runUnchecked(const Json& command);
  // Executes a command that must fail, and returns the error. The test fails if the command succeeds.
  std::string runExpectingError(const Json& command);

  // Writes a value to the preferences domain, as the settings pane does. Null deletes the key.
  void set(const std::string& key, const Json& value);
  // Advances the clock.
  void wait(double seconds);
  // Presents a notification and returns the controller's number. The section is the Messages app unless `fields` names
  // another one.
  int present(const Json& fields = Json::object());
  Json state(int controller);
  // Returns the events that were logged since the last call.
  Json log();

  // The view trees of all windows, or of one controller.
  Json windows(std::optional<int> controller = std::nullopt);
  // The node of the controller's banner. Null if the controller has no banner.
  Json banner(int controller);
  // The node of the view that the banner stores in this property. Null if there is no such view.
  Json view(int controller, const std::string& property);
  // A screenshot, as the bytes of a PNG.
  std::string picture();

  std::filesystem::path root() const;

 private:
  std::filesystem::path folder_;
  std::optional<runner::Session> session_;
  // Releases the autoreleased objects of the test when the phone is destroyed.
  std::optional<objc::AutoreleasePool> pool_;
};

// The nodes that satisfy the predicate. A node precedes its children.
std::vector<Json> nodes(const Json& trees, const std::function<bool(const Json&)>& predicate);
// The first node in which the field has this value. Null if there is no such node.
Json firstNode(const Json& trees, const std::string& field, const Json& value);
// The events of this kind, in order.
std::vector<Json> eventsOf(const Json& events, const std::string& kind);

}  // namespace test
