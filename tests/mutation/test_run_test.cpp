#include "mutation/test_run.hpp"

#include <gtest/gtest.h>
#include <stdlib.h>

#include "tests/support/temporary_folder.hpp"

namespace {

namespace fs = std::filesystem;
using mutation::Outcome;

class TestRun : public testing::Test {
 protected:
  // A run sets this variable to a folder that the fixture removes.
  ~TestRun() override { unsetenv("TMPDIR"); }

  // Runs a shell command as a test. Its output must match one of the expressions, unless there are none.
  Outcome outcomeOf(const std::string& command, const std::vector<std::string>& expressions) const {
    const fs::path configured = folder_.path() / "configured";
    fs::create_directories(configured / "lib/brim");
    const mutation::TestFolder folder(configured, folder_.path() / "worker", folder_.path() / "temporary");
    const mutation::Test shell = {"Shell.Test", {"/bin/sh", "-c", command}, configured, {"WORD=hello"}, expressions};
    return folder.run(shell, 0, 0, {1000, 10, 20}).outcome;
  }

 private:
  test::TemporaryFolder folder_;
};

TEST_F(TestRun, PassesIfTheExitStatusIsZero) {
  EXPECT_EQ(outcomeOf("exit 0", {}), Outcome::Passed);
  EXPECT_EQ(outcomeOf("exit 1", {}), Outcome::Failed);
}

TEST_F(TestRun, HasTheEnvironmentOfTheTest) { EXPECT_EQ(outcomeOf("test \"$WORD\" = hello", {}), Outcome::Passed); }

TEST_F(TestRun, WithAnExpectedOutputIgnoresTheExitStatus) {
  EXPECT_EQ(outcomeOf("echo 12 objects >&2; echo; echo increased; exit 1", {"other", "[0-9]+ objects.*increased"}),
            Outcome::Passed);
  EXPECT_EQ(outcomeOf("echo nothing", {"[0-9]+ objects"}), Outcome::Failed);
}

}  // namespace
