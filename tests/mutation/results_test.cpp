#include "mutation/results.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/temporary_folder.hpp"

namespace {

using mutation::MutantResult;
using mutation::Outcome;
using mutation::ResultFile;
using mutation::State;
using testing::ElementsAre;
using testing::IsNull;
using testing::NotNull;
using testing::Pair;

class Results : public testing::Test {
 protected:
  ResultFile opened(const std::string& sources, const std::string& tests, const std::string& killer) const {
    return {path_, {sources, tests, {{"S.Killer", killer}}}};
  }

  test::TemporaryFolder folder_;
  const std::filesystem::path path_ = folder_.path() / "results.jsonl";
  const mutation::MutantKey key_ = {"a.cpp|f|x|y|0", "a.cpp|f", "a.cpp"};
};

TEST_F(Results, AreReadFromTheFileOfAnEarlierRun) {
  opened("1", "1", "1").append(key_, {State::SurvivedFirstTests, "", Outcome::Passed, 2, {"S.A", "S.B"}, {"S.C"}, 1.5});
  const ResultFile file = opened("1", "1", "1");
  ASSERT_THAT(file.find(key_.text), NotNull());
  const MutantResult& result = *file.find(key_.text);
  EXPECT_EQ(result.state, State::SurvivedFirstTests);
  EXPECT_EQ(result.testCount, 2U);
  EXPECT_THAT(result.passedTests, ElementsAre("S.A", "S.B"));
  EXPECT_THAT(result.unreliableTests, ElementsAre("S.C"));
  EXPECT_EQ(result.seconds, 1.5);
}

TEST_F(Results, ASurvivorIsInvalidAfterAChangeOfATest) {
  opened("1", "1", "1").append(key_, {State::Survived, "", Outcome::Passed, 2});
  EXPECT_THAT(opened("1", "2", "1").find(key_.text), IsNull());
}

TEST_F(Results, AKillIsInvalidAfterAChangeOfTheTestThatFailed) {
  opened("1", "1", "1").append(key_, {State::Killed, "S.Killer", Outcome::Failed, 2});
  EXPECT_THAT(opened("1", "2", "1").find(key_.text), NotNull());
  EXPECT_THAT(opened("1", "2", "2").find(key_.text), IsNull());
}

TEST_F(Results, AnInvalidKillStillNamesItsTest) {
  opened("1", "1", "1").append(key_, {State::Killed, "S.Killer", Outcome::Failed, 2});
  mutation::TestQuery query;
  opened("2", "2", "2").addKills(key_, query);
  EXPECT_EQ(query.lastKiller, "S.Killer");
  EXPECT_THAT(query.functionKills, ElementsAre(Pair("S.Killer", 1U)));
  EXPECT_THAT(query.fileKills, ElementsAre(Pair("S.Killer", 1U)));
}

TEST_F(Results, IncludeThoseOfOtherProcessesAfterTheNextUpdate) {
  ResultFile reader = opened("1", "1", "1");
  opened("1", "1", "1").append(key_, {State::Survived, "", Outcome::Passed, 2});
  EXPECT_THAT(reader.find(key_.text), IsNull());
  reader.update();
  EXPECT_THAT(reader.find(key_.text), NotNull());
}

TEST_F(Results, AnIncompleteLastLineIsIgnored) {
  opened("1", "1", "1").append(key_, {State::Survived, "", Outcome::Passed, 2});
  std::ofstream(path_, std::ios::app) << R"({"fingerprint": "1", "key":)";
  EXPECT_THAT(opened("1", "1", "1").find(key_.text), NotNull());
}

}  // namespace
