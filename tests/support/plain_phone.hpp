// A simulated phone that has a temporary root and does not load the library. A process can contain only one phone.
#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "simulator/runner/session.hpp"
#include "tests/support/start_time.hpp"
#include "tests/support/temporary_folder.hpp"

namespace test {

using Json = nlohmann::ordered_json;

class PlainPhone {
 public:
  explicit PlainPhone(runner::Options options = {}) : session_(completed(std::move(options))) {}

  // Executes a command that is allowed to fail, and returns its answer.
  Json answer(const Json& command) { return session_.run(command); }
  Json answerLine(const std::string& line) { return session_.runLine(line); }

  // Executes a command and returns its answer. The test fails if the command fails.
  Json run(const Json& command) {
    Json result = session_.run(command);
    EXPECT_TRUE(result.at("ok").get<bool>()) << command << " failed: " << result;
    return result;
  }
  Json run(const char* name, const Json& fields = Json::object()) {
    Json command = {{"do", name}};
    command.update(fields);
    return run(command);
  }

  void wait(double seconds) { run("wait", {{"seconds", seconds}}); }
  // Presents a notification and returns its controller's number. The section is the Messages app unless `fields` names
  // another one.
  int present(const Json& fields = Json::object()) {
    Json command = {{"do", "present"}, {"section", "com.apple.MobileSMS"}, {"title", "Anna"}, {"message", "Hello"}};
    command.update(fields);
    return run(command).at("controller").get<int>();
  }
  bool isDismissed(int controller) { return run("state", {{"controller", controller}}).at("dismissed"); }
  // Returns and removes the events logged so far.
  Json log() { return run("log").at("events"); }
  // Returns the first view of this class in the controller's view tree. Null if there is no such view.
  Json view(int controller, const std::string& className) {
    return find(run("tree", {{"controller", controller}}).at("windows"), "class", className);
  }

  const std::filesystem::path& folder() const { return temporaryFolder_.path(); }

  // Returns the first node in which the field has this value. Searches depth-first. Null if there is no such node.
  static Json find(const Json& nodes, const std::string& field, const Json& value) {
    for (const Json& node : nodes) {
      if (node.contains(field) && node.at(field) == value) return node;
      if (Json below = find(node.at("children"), field, value); !below.is_null()) return below;
    }
    return nullptr;
  }

 private:
  runner::Options completed(runner::Options options) const {
    options.root = temporaryFolder_.path() / "root";
    options.library = process::LibraryUse::Absent;
    if (!options.time) options.time = startTime;
    return options;
  }

  TemporaryFolder temporaryFolder_;
  runner::Session session_;
};

}  // namespace test
