// The subcommands of `phone_control`, which controls a live phone. Main thread.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "simulator/process/command_line.hpp"

namespace control {

struct ControlOptions {
  // The root of the phone. An empty path selects the user's default root.
  std::filesystem::path root = {};
  std::optional<double> scale = {};
  std::optional<double> seconds = {};
  // The options of the phone that the subcommand `restart` changes.
  std::optional<std::string> device = {};
  std::optional<std::string> system = {};
  std::optional<std::string> locale = {};
  // The subcommand and its arguments.
  std::vector<std::string> words = {};
};

// Thrown if the command line does not have the form that a subcommand requires. what() is a message for the user.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Subcommand {
  std::string name;
  std::string arguments;  // the form of the arguments, for the user
  std::string description;
  std::size_t minArguments;
  std::size_t maxArguments;
  // The options that the subcommand accepts in addition to --root.
  std::vector<std::string> options;
  // Returns the exit status. Throws ControlError and ConnectionError.
  int (*execute)(const ControlOptions& options, std::span<const std::string> arguments);
};

const std::vector<Subcommand>& subcommands();

// Parses the arguments, which do not include the program's name.
process::CommandLine<ControlOptions> parseControlOptions(std::span<const char* const> arguments);

// Executes the subcommand and returns the exit status. Throws UsageError, ControlError and ConnectionError.
int execute(const ControlOptions& options);

// Returns the --help text of the subcommand with this name, or of the program if there is no such subcommand.
std::string helpText(const std::string& subcommand);

}  // namespace control
