// Tests of the shell completion for the arguments of ./brim.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "simulator/control/subcommands.hpp"
#include "tests/control/live_phone.hpp"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class Completion : public testing::Test {
 protected:
  std::vector<std::string> linesOf(const std::string& command) {
    std::istringstream output(test::runIn(folder.path(), command).output);
    std::vector<std::string> lines;
    for (std::string line; std::getline(output, line);) lines.push_back(line);
    return lines;
  }

  std::vector<std::string> candidates(const std::string& arguments) {
    return linesOf(BRIM_SOURCE "/brim candidates " + arguments);
  }

  test::TemporaryFolder folder;
};

TEST_F(Completion, OffersAllCommands) {
  const std::vector<std::string> commands = candidates("");
  for (const control::Subcommand& subcommand : control::subcommands()) EXPECT_THAT(commands, Contains(subcommand.name));
  EXPECT_THAT(commands, Contains("springboard"));
}

TEST_F(Completion, OffersTheArgumentsOfACommand) {
  EXPECT_THAT(candidates("appearance"), ElementsAre("light", "dark"));
  EXPECT_THAT(candidates("restart"), ElementsAre("--device", "--system", "--locale"));
  EXPECT_THAT(candidates("restart --device"), ElementsAre("iphone-se", "iphone-8", "iphone-x", "iphone-11-pro-max"));
  EXPECT_THAT(candidates("settings"), ElementsAre("list", "get", "set", "reset"));
  EXPECT_THAT(candidates("settings get"), Contains("tinyBannerFontSize"));
  EXPECT_EQ(candidates("settings set").size(), 34U);
  EXPECT_THAT(candidates("push"), Contains("com.apple.MobileSMS"));
  EXPECT_THAT(candidates("screenshot"), IsEmpty());
}

TEST_F(Completion, CompletesAWordInBash) {
  const std::string script = "cd " BRIM_SOURCE
                             " && source completion/brim.bash && COMP_WORDS=(./brim settings set tinyBannerF) && "
                             "COMP_CWORD=3 && _brim && printf \"%s\\n\" \"${COMPREPLY[@]}\"";
  EXPECT_THAT(linesOf("bash -c '" + script + "'"), ElementsAre("tinyBannerFontSize"));
}

}  // namespace
