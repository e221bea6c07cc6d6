// Controls a live phone in another process.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>

#include "simulator/foundation/descriptor.hpp"

namespace test {

// Returns whether the condition becomes true within the time limit.
bool eventually(const std::function<bool()>& condition, std::chrono::seconds limit = std::chrono::seconds(30));

// A connection over which the phone executes commands in order.
class CommandConnection {
 public:
  // Waits until the phone on this root accepts commands. Throws std::runtime_error if it does not.
  explicit CommandConnection(const std::filesystem::path& root);
  // Sends lines. Each line is a command.
  void send(const std::string& lines) const;
  // Waits for the next answer.
  nlohmann::json receive();
  // Returns whether the next answer has already arrived.
  bool hasReceived();

 private:
  foundation::FileDescriptor socket_;
  std::string received_;
};

// Executes a command of the phone on this root and returns the answer. Waits until the phone accepts commands. Throws
// std::runtime_error if it does not answer.
nlohmann::json tell(const std::filesystem::path& root, const nlohmann::json& command);

// Returns whether a view of the phone on this root has this text.
bool showsText(const std::filesystem::path& root, const std::string& text);

}  // namespace test
