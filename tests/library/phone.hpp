// A phone of one's own for a test: a temporary root, started with the options and settings that the test names. A
// process has one.
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
  // Stored in the preferences domain before the phone starts.
  std::map<std::string, Json> settings;
};

class Phone {
 public:
  explicit Phone(Setup setup = {});
  ~Phone();

  // Obeys a command that must succeed; a failure fails the test.
  Json run(const Json& command);
  // Obeys a command that may be refused, and gives the whole answer.
  Json answer(const Json& command);
  // Obeys a command that must be refused, and gives the reason.
  std::string refusal(const Json& command);

  void set(const std::string& key, const Json& value);
  void wait(double seconds);
  // Presents a notification of the Messages app, or of the section named, and gives its controller's number.
  int present(const Json& fields = Json::object());
  Json state(int controller);
  Json log();

  // The view trees of all windows, or of one controller.
  Json windows(std::optional<int> controller = std::nullopt);
  // The controller's banner, null without one.
  Json banner(int controller);
  // The view that the banner holds under that name, null where there is none.
  Json view(int controller, const std::string& property);
  // The bytes of a picture of the screen.
  std::string picture();

  std::filesystem::path root() const;

 private:
  std::filesystem::path folder;
  std::optional<runner::Session> session;
  // What a test's own messages autorelease.
  std::optional<objc::AutoreleasePool> pool;
};

// Every node of the trees for which the predicate holds, outermost first.
std::vector<Json> nodes(const Json& trees, const std::function<bool(const Json&)>& matches);
// The first node with that value in that field, null where there is none.
Json firstNode(const Json& trees, const std::string& field, const Json& value);
// The events of that kind.
std::vector<Json> eventsOf(const Json& events, const std::string& kind);

}  // namespace test
