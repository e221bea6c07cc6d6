// A connection to the live phone of a root. Main thread.
#pragma once

#include <filesystem>
#include <nlohmann/json_fwd.hpp>
#include <stdexcept>
#include <string>

#include "simulator/foundation/descriptor.hpp"

namespace control {

// Thrown if no phone is running, or if the phone ends before it answers. what() is a message for the user.
class ConnectionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Thrown if the phone reports an error or an argument is invalid. what() is a message for the user.
class ControlError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class PhoneConnection {
 public:
  // Connects to the phone. An empty path selects the user's default root. Throws ConnectionError.
  explicit PhoneConnection(const std::filesystem::path& root);

  // Sends a script command as one line. Waits until the phone has executed it, and returns the phone's answer, which is
  // also one line. The lines do not include the line feed. Throws ConnectionError.
  std::string executeLine(const std::string& line);
  // Executes a command. Returns the phone's answer.
  nlohmann::ordered_json execute(const nlohmann::ordered_json& command);

 private:
  foundation::FileDescriptor socket_;
  std::string received_;
};

// Executes the command. Returns the phone's answer. Throws ControlError if the phone reports an error.
nlohmann::ordered_json executeOn(PhoneConnection& phone, const nlohmann::ordered_json& command);

}  // namespace control
