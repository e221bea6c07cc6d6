// The program `phone_control`: controls a live phone from another process.
#include <cstdio>
#include <string>

#include "simulator/control/phone_connection.hpp"
#include "simulator/control/subcommands.hpp"
#include "simulator/process/standard_streams.hpp"

namespace {

constexpr int failed = 1;
constexpr int wrongUsage = 2;

int reportError(const std::string& message, int status) {
  std::fprintf(stderr, "brim: %s\n", message.c_str());
  return status;
}

int run(const control::ControlOptions& options) try {
  return control::execute(options);
} catch (const control::UsageError& error) {
  return reportError(error.what(), wrongUsage);
} catch (const std::exception& error) {
  return reportError(error.what(), failed);
}

}  // namespace

int main(int count, char** arguments) {
  process::reserveStandardDescriptors();
  const auto parsed = control::parseControlOptions({arguments + 1, static_cast<std::size_t>(count - 1)});
  if (const auto* error = std::get_if<process::OptionError>(&parsed)) return reportError(error->message, wrongUsage);
  if (std::holds_alternative<process::HelpRequest>(parsed))
    return process::printAndExit("brim", control::helpText(count > 1 ? arguments[1] : ""));
  if (std::holds_alternative<process::VersionRequest>(parsed))
    return process::printAndExit("brim", "phone_control " BRIM_VERSION "\n");
  return run(std::get<control::ControlOptions>(parsed));
}
