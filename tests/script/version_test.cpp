// Tests that the programs and the script ./brim print the version of the project.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

#include "simulator/messages/messages_options.hpp"
#include "simulator/runner/springboard_options.hpp"

namespace {

std::string outputOf(const std::string& command) {
  std::FILE* const pipe = popen(command.c_str(), "r");
  std::array<char, 256> read{};
  const std::size_t count = std::fread(read.data(), 1, read.size(), pipe);
  EXPECT_EQ(pclose(pipe), 0) << command;
  return {read.data(), count};
}

TEST(Version, IsPrintedByEachProgram) {
  EXPECT_EQ(outputOf(SPRINGBOARD " --version"), "springboard " BRIM_VERSION "\n");
  EXPECT_EQ(outputOf(MESSAGES " --version"), "messages " BRIM_VERSION "\n");
}

TEST(Version, IsPrintedByTheBuildScript) {
  EXPECT_EQ(outputOf(BRIM_SOURCE "/brim --version"), "brim " BRIM_VERSION "\n");
}

TEST(Version, IsPrintedEvenIfOtherOptionsAreInvalid) {
  constexpr std::array arguments = {"--device", "iphone-8", "--version", "--nonsense"};
  EXPECT_TRUE(std::holds_alternative<process::VersionRequest>(runner::parseOptions(arguments)));
  EXPECT_TRUE(std::holds_alternative<process::VersionRequest>(
      messages::parseMessagesOptions(std::array{"--list", "--version"})));
}

}  // namespace
