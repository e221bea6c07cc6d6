// A live phone in another process, with its own root, and the program that controls it.
#pragma once

#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "simulator/control/phone_connection.hpp"
#include "tests/support/child_process.hpp"
#include "tests/support/temporary_folder.hpp"

namespace test {

using Json = nlohmann::ordered_json;

struct Outcome {
  int status = -1;
  std::string output;
  std::string errors;
};

class LivePhone {
 public:
  explicit LivePhone(const std::vector<std::string>& options = {});

  const std::filesystem::path& root() const { return root_; }
  const std::filesystem::path& folder() const { return folder_.path(); }
  ChildProcess& process() { return *process_; }

  // Starts the phone again after it has ended.
  void restart();
  control::PhoneConnection connect() const { return control::PhoneConnection(root_); }
  Json execute(const Json& command) const { return connect().execute(command); }

  // Runs phone_control in the folder of the phone. The arguments are shell words.
  Outcome control(const std::string& arguments, const std::string& standardInput = "") const;
  // The titles in the phone's list of notifications, latest first.
  std::vector<std::string> titles() const;

 private:
  TemporaryFolder folder_;
  std::filesystem::path root_ = folder_.path() / "root";
  std::vector<std::string> command_;
  std::unique_ptr<ChildProcess> process_;
};

// Runs a shell command in the folder.
Outcome runIn(const std::filesystem::path& folder, const std::string& command, const std::string& standardInput = "");

// Returns whether the condition becomes true within ten seconds.
bool becomesTrue(const std::function<bool()>& condition);

}  // namespace test
