#include "mutation/report.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using mutation::State;
using testing::HasSubstr;

class Report : public testing::Test {
 protected:
  Report() : mutants_(5) {
    for (mutation::Mutant& mutant : mutants_) {
      mutant.file = "a.cpp";
      mutant.function = "f";
      mutant.operation = "constant";
      mutant.original = "x = 5;";
      mutant.replacement = "x = 0;";
      mutant.line = 7;
    }
  }

  mutation::ReportData data(std::map<std::size_t, mutation::MutantResult> results) const {
    mutation::ReportData data = {mutants_, {}, std::move(results), {}, {}, {}, 1};
    for (const auto& [index, result] : data.results) data.selected.push_back(index);
    return data;
  }

  std::vector<mutation::Mutant> mutants_;
};

TEST_F(Report, AMutantThatNoTestExecutesLowersTheScore) {
  const mutation::Score score = mutation::scoreOf(data({{0, {State::Killed, "T", mutation::Outcome::Failed, 1}},
                                                        {1, {State::Killed, "T", mutation::Outcome::TooLong, 1}},
                                                        {2, {State::Survived, "", mutation::Outcome::Passed, 9}},
                                                        {3, {State::NotExecuted, "", mutation::Outcome::Passed, 0}}}));
  EXPECT_EQ(score.percent(), 50);
}

TEST_F(Report, AMutantThatDoesNotCompileIsNotInTheScore) {
  const mutation::Score score =
      mutation::scoreOf(data({{0, {State::Killed, "T", mutation::Outcome::Failed, 1}},
                              {1, {State::DoesNotCompile, "", mutation::Outcome::Passed, 0}}}));
  EXPECT_EQ(score.percent(), 100);
}

TEST_F(Report, AMutantThatSurvivedTheFirstTestsLowersTheScoreAndIsListedSeparately) {
  const mutation::ReportData reported = data({{0, {State::Killed, "T", mutation::Outcome::Failed, 1}},
                                              {1, {State::SurvivedFirstTests, "", mutation::Outcome::Passed, 9}}});
  EXPECT_EQ(mutation::scoreOf(reported).percent(), 50);
  const std::string text = mutation::report(reported);
  EXPECT_THAT(text, HasSubstr("| survived the first tests; the other tests did not run | 1 |"));
  EXPECT_THAT(text, HasSubstr("## Survivors of the first tests\n\na.cpp:7"));
}

TEST_F(Report, ListsUnreliableTests) {
  mutation::MutantResult result = {State::Survived, "", mutation::Outcome::Passed, 9};
  result.unreliableTests = {"S.Unreliable"};
  EXPECT_THAT(mutation::report(data({{0, result}})), HasSubstr("- S.Unreliable\n"));
}

TEST_F(Report, ShowsASurvivorAsADifference) {
  const std::string text = mutation::report(data({{0, {State::Survived, "", mutation::Outcome::Passed, 9}}}));
  EXPECT_THAT(text, HasSubstr("a.cpp:7, f (constant)"));
  EXPECT_THAT(text, HasSubstr("- x = 5;\n+ x = 0;\n"));
}

TEST_F(Report, ShowsTheReasonOfAnEquivalentMutant) {
  mutation::ReportData reported = data({});
  reported.equivalents[2] = "x is not read";
  EXPECT_THAT(mutation::report(reported), HasSubstr("x is not read"));
}

TEST_F(Report, ListsTheLinesThatNoTestExecutes) {
  mutation::ReportData reported = data({});
  reported.coverage["a.cpp"] = {{{3, true}, {4, false}}, 2, 1};
  EXPECT_THAT(mutation::report(reported), HasSubstr("| a.cpp | 50.0 | 50.0 | 4 |"));
}

}  // namespace
