// A phone without the library, with a root of its own: the platform as the simulator has it. A process has one.
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
  explicit PlainPhone(runner::Options options = {}) : session(atHome(std::move(options))) {}

  Json answer(const Json& command) { return session.run(command); }
  Json answerLine(const std::string& line) { return session.runLine(line); }

  // Obeys a command that must succeed; a failure fails the test.
  Json run(const Json& command) {
    Json result = session.run(command);
    EXPECT_TRUE(result.at("ok").get<bool>()) << command << " was answered with " << result;
    return result;
  }
  Json run(const char* name, const Json& fields = Json::object()) {
    Json command = {{"do", name}};
    command.update(fields);
    return run(command);
  }

  void wait(double seconds) { run("wait", {{"seconds", seconds}}); }
  // Presents a notification of the Messages app, or of the section named, and gives its controller's number.
  int present(const Json& fields = Json::object()) {
    Json command = {{"do", "present"}, {"section", "com.apple.MobileSMS"}, {"title", "Anna"}, {"message", "Hello"}};
    command.update(fields);
    return run(command).at("controller").get<int>();
  }
  bool isDismissed(int controller) { return run("state", {{"controller", controller}}).at("dismissed"); }
  Json log() { return run("log").at("events"); }
  // The first view of that class in the controller's tree, null where there is none.
  Json view(int controller, const std::string& className) {
    return find(run("tree", {{"controller", controller}}).at("windows"), "class", className);
  }

  const std::filesystem::path& folder() const { return home.path(); }

  static Json find(const Json& nodes, const std::string& field, const Json& value) {
    for (const Json& node : nodes) {
      if (node.contains(field) && node.at(field) == value) return node;
      if (Json below = find(node.at("children"), field, value); !below.is_null()) return below;
    }
    return nullptr;
  }

 private:
  runner::Options atHome(runner::Options options) const {
    options.root = home.path() / "root";
    options.library = process::LibraryUse::Absent;
    if (!options.time) options.time = startTime;
    return options;
  }

  TemporaryFolder home;
  runner::Session session;
};

}  // namespace test
