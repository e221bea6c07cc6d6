// The program `springboard`: the process of the home screen.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "simulator/process/descriptor_limit.hpp"
#include "simulator/process/standard_streams.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/demonstration.hpp"
#include "simulator/runner/live_phone.hpp"
#include "simulator/runner/recording.hpp"
#include "simulator/runner/session.hpp"
#include "simulator/runner/springboard_options.hpp"

namespace {

constexpr int scriptFailed = 1;
constexpr int cannotStart = 2;

int reportError(const std::string& message, int status = cannotStart) {
  std::fprintf(stderr, "springboard: %s\n", message.c_str());
  return status;
}

bool isSkipped(const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t\r");
  return first == std::string::npos || line[first] == '#';
}

// Executes the script. Prints the result of each command to standard output as soon as the command has ended.
int runScript(runner::Session& session, std::istream& script) {
  int status = 0;
  for (std::string line; std::getline(script, line);) {
    if (isSkipped(line)) continue;
    const runner::Json result = session.runLine(line);
    if (!result["ok"].get<bool>()) status = scriptFailed;
    std::cout << result.dump(-1, ' ', false, runner::Json::error_handler_t::replace) << std::endl;
    if (!std::cout)
      return reportError("cannot write to standard output; the rest of the script was not executed", scriptFailed);
  }
  if (script.bad() || (&script == &std::cin && process::failedToReadStandardInput()))
    return reportError("cannot read the script to its end", scriptFailed);
  return status;
}

// If the script has started a recording but not ended it, reports an error. Returns the exit status.
int reportRunningRecording(int status) {
  const std::filesystem::path recording = runner::runningRecording();
  if (recording.empty()) return status;
  return reportError("the recording " + recording.string() +
                         " was not written, because it was not ended with the command stoprecording",
                     scriptFailed);
}

// Opens the file. Returns false if the file is missing or unreadable, or is a folder.
bool open(std::ifstream& file, const std::string& path) {
  if (std::filesystem::is_directory(path)) return false;
  file.open(path);
  return file.is_open();
}

int run(const runner::Options& options) {
  const bool readsFile = !options.script.empty() && options.script != "-";
  std::ifstream file;
  if (readsFile && !open(file, options.script)) return reportError("cannot read the script " + options.script);
  if (options.clock == foundation::ClockMode::Real) return reportRunningRecording(runner::runLive(options));
  runner::Session session(options);
  if (!options.demonstration.empty()) return runner::demonstrate(session, options.demonstration);
  return reportRunningRecording(runScript(session, readsFile ? file : std::cin));
}

int start(const runner::Options& options) try {
  if (options.script.empty() && options.demonstration.empty() && options.clock == foundation::ClockMode::Stepped)
    return reportError("nothing to do; specify --script FILE, --live or --demonstration DIR (see --help)");
  return run(options);
} catch (const std::exception& error) {
  return reportError(error.what());
}

}  // namespace

int main(int count, char** arguments) {
  process::reserveStandardDescriptors();
  const auto parsed = runner::parseOptions({arguments + 1, static_cast<std::size_t>(count - 1)});
  if (const auto* error = std::get_if<process::OptionError>(&parsed)) return reportError(error->message);
  if (std::holds_alternative<process::HelpRequest>(parsed))
    return process::printAndExit("springboard", runner::helpText() + "\n" + runner::commandHelp());
  if (std::holds_alternative<process::VersionRequest>(parsed))
    return process::printAndExit("springboard", "springboard " BRIM_VERSION "\n");
  if (const auto error = process::raiseDescriptorLimit()) return reportError(*error, scriptFailed);
  return start(std::get<runner::Options>(parsed));
}
