#include "mutation/coverage.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "mutation/files.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

using testing::ElementsAre;
using testing::Pair;

class Coverage : public testing::Test {
 protected:
  // Compiles the files with counters, and runs the program.
  void run(const std::map<std::string, std::string>& files) {
    std::string sources;
    for (const auto& [name, text] : files) {
      mutation::writeFile(folder_.path() / name, text);
      sources += " '" + (folder_.path() / name).string() + "'";
    }
    const mutation::CommandResult result =
        mutation::runCommand("cd '" + folder_.path().string() +
                             "' && g++ --coverage -fprofile-abs-path -O0 -o program" + sources + " && ./program");
    ASSERT_EQ(result.status, 0) << result.output;
  }

  test::TemporaryFolder folder_;
};

TEST_F(Coverage, ContainsTheLinesAndBranchesOfTheFolder) {
  run({{"library/a.cpp", "int half(int number) {\n  if (number > 10)\n    return number / 2;\n  return 0;\n}\n"},
       {"main.cpp", "int half(int number);\nint main() { return half(3); }\n"}});
  const auto coverage = mutation::readCoverage(folder_.path(), folder_.path(), "library/");
  ASSERT_EQ(coverage.size(), 1U);
  const mutation::FileCoverage& file = coverage.at("library/a.cpp");
  EXPECT_THAT(file.lines, ElementsAre(Pair(1, true), Pair(2, true), Pair(3, false), Pair(4, true)));
  EXPECT_EQ(file.branches, 2U);
  EXPECT_EQ(file.takenBranches, 1U);
}

TEST_F(Coverage, MissingCountersAreAnError) {
  EXPECT_THROW(mutation::readCoverage(folder_.path(), folder_.path(), "library/"), std::runtime_error);
}

}  // namespace
