#include "mutation/test_order.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using mutation::KnownTest;
using mutation::TestQuery;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

KnownTest known(const std::string& name, const std::set<unsigned>& reached, double seconds = 1) {
  KnownTest test;
  test.test.name = name;
  test.seconds = seconds;
  test.reached.resize(10);
  for (const unsigned number : reached) test.reached[number] = true;
  test.reachedCount = reached.size();
  return test;
}

std::vector<std::string> names(const std::vector<KnownTest>& tests, const TestQuery& query) {
  std::vector<std::string> found;
  for (const KnownTest* test : mutation::orderedTests(tests, query)) found.push_back(test->test.name);
  return found;
}

TEST(TestOrder, ContainsOnlyTestsThatExecuteOneOfTheNumbers) {
  const std::vector<KnownTest> tests = {known("S.A", {1}), known("S.B", {2}), known("S.C", {3, 4})};
  EXPECT_THAT(names(tests, {{1, 4}, {}, {}, "", {}, {}}), UnorderedElementsAre("S.A", "S.C"));
  EXPECT_THAT(names(tests, {}), UnorderedElementsAre("S.A", "S.B", "S.C"));
}

TEST(TestOrder, BeginsWithTheLastKillerAndTheKillersOfTheFunction) {
  const std::vector<KnownTest> tests = {known("S.A", {1}), known("S.B", {1}), known("S.C", {1}), known("S.D", {1})};
  EXPECT_THAT(names(tests, {{1}, {}, {}, "S.D", {{"S.B", 1}, {"S.C", 2}}, {}}),
              ElementsAre("S.D", "S.C", "S.B", "S.A"));
}

TEST(TestOrder, TestsWhoseNameContainsWordsOfTheChangeAreBeforeKillersOfTheFunction) {
  const std::vector<KnownTest> tests = {known("S.A", {1}), known("S.Label", {1}),
                                        known("Rows/S.T/UILabel_numberOfLines", {1})};
  EXPECT_THAT(names(tests, {{1}, {"label", "numberoflines"}, {}, "", {{"S.A", 1}}, {}}),
              ElementsAre("Rows/S.T/UILabel_numberOfLines", "S.A", "S.Label"));
}

TEST(TestOrder, WordsArePartsOfIdentifiersWithAtLeastFiveLetters) {
  EXPECT_THAT(mutation::wordsOf("auto* five_ = clearEveryFlags(four, _label, x12345);"),
              ElementsAre("clear", "cleareveryflags", "every", "five_", "flags", "label"));
}

TEST(TestOrder, PrefersTestsOfRelatedFunctionsThenOfTheFileThenSpecificThenFastTests) {
  const std::vector<KnownTest> tests = {known("S.Large", {1, 2, 3}), known("S.Slow", {1}, 2), known("S.Fast", {1}),
                                        known("S.File", {1, 2, 3}), known("S.Related", {1, 2, 3, 5})};
  EXPECT_THAT(names(tests, {{1}, {}, {5}, "", {}, {{"S.File", 1}}}),
              ElementsAre("S.Related", "S.File", "S.Fast", "S.Slow", "S.Large"));
}

TEST(TestOrder, TakesOneTestFromEachSuiteInTurnAfterTheSpecificTests) {
  std::vector<KnownTest> tests;
  tests.reserve(14);
  for (int index = 0; index < 10; ++index) tests.push_back(known("Specific." + std::to_string(index), {1}));
  tests.push_back(known("First.Small", {1, 2}));
  tests.push_back(known("Instances/First.Large/0", {1, 2, 3, 4, 5}));
  tests.push_back(known("First.Medium", {1, 2, 3}));
  tests.push_back(known("Second.A", {1, 2, 3, 4}));
  std::vector<std::string> last = names(tests, {{1}, {}, {}, "", {}, {}});
  last.erase(last.begin(), last.begin() + 10);
  EXPECT_THAT(last, ElementsAre("Instances/First.Large/0", "Second.A", "First.Medium", "First.Small"));
}

TEST(TestOrder, PrefersFastTestsAfterTheSpecificTests) {
  std::vector<KnownTest> tests;
  for (int index = 0; index < 10; ++index) tests.push_back(known("Specific." + std::to_string(index), {1}));
  tests.push_back(known("Slow.A", {1, 2, 3, 4, 5}));
  tests.back().processorSeconds = 3;
  tests.push_back(known("Fast.A", {1, 2}));
  tests.back().processorSeconds = 0.2;
  const std::vector<std::string> ordered = names(tests, {{1}, {}, {}, "", {}, {}});
  EXPECT_THAT(std::vector(ordered.begin() + 10, ordered.end()), ElementsAre("Fast.A", "Slow.A"));
}

}  // namespace
