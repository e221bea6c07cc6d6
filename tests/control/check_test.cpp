// Tests of `./brim check`: which steps exist, and what happens when a step fails.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "tests/control/live_phone.hpp"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

class Check : public testing::Test {
 protected:
  test::Outcome brim(const std::string& arguments) {
    return test::runIn(folder.path(), BRIM_SOURCE "/brim " + arguments + " 2>&1");
  }

  // Runs all steps: `one`, which prints "broken" and fails, and `two`, which succeeds.
  test::Outcome checkEverything(const std::string& functions) {
    return test::runIn(folder.path(), "bash -c 'source " BRIM_SOURCE
                                      "/brim candidates none; project=$PWD; check_steps=(one two); " +
                                          functions + "; run_checks' 2>&1");
  }

  std::string log(const std::string& step) {
    std::ostringstream text;
    text << std::ifstream(folder.path() / "build/check" / (step + ".log")).rdbuf();
    return text.str();
  }

  test::TemporaryFolder folder;
};

TEST_F(Check, HelpListsEveryStepAndEachStepHasAFunction) {
  const std::string help = brim("--help").output;
  std::istringstream steps(brim("candidates check").output);
  std::ostringstream source;
  source << std::ifstream(BRIM_SOURCE "/brim").rdbuf();
  int count = 0;
  for (std::string step; steps >> step; ++count) {
    EXPECT_THAT(help, HasSubstr(step));
    EXPECT_THAT(source.str(), HasSubstr("\ncheck_" + step + "() {"));
  }
  EXPECT_GE(count, 9);
}

TEST_F(Check, RunsNoStepIfOneIsUnknown) {
  const test::Outcome outcome = brim("check format nothing");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.output, AllOf(HasSubstr("there is no check 'nothing'"), Not(HasSubstr("clean"))));
}

TEST_F(Check, ContinuesAfterAFailedStepAndReportsItAtTheEnd) {
  const test::Outcome outcome =
      checkEverything("check_one() { echo broken; false; echo unreachable; }; check_two() { echo fine; }");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.output, MatchesRegex("one +started\none +failed in [0-9]+ s\ntwo +started\ntwo +passed in [0-9]+ "
                                           "s\n\none failed; the end of build/check/one.log:\nbroken\nbrim: 1 of 2 "
                                           "steps failed: one\n"));
  EXPECT_EQ(log("one"), "broken\n");
  EXPECT_EQ(log("two"), "fine\n");
}

TEST_F(Check, SucceedsIfAllStepsSucceed) {
  const test::Outcome outcome = checkEverything("check_one() { :; }; check_two() { :; }");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.output, HasSubstr("all 2 steps passed\n"));
}

}  // namespace
