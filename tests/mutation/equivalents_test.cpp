#include "mutation/equivalents.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

std::vector<mutation::Mutant> twoMutants() {
  std::vector<mutation::Mutant> mutants(2);
  mutants[0].file = mutants[1].file = "a.cpp";
  mutants[0].function = mutants[1].function = "f";
  mutants[0].original = mutants[1].original = "x = 5;";
  mutants[0].replacement = "x = 0;";
  mutants[1].replacement = "x = 6;";
  return mutants;
}

std::string entry(const std::string& replacement, const std::string& reason) {
  return R"([{"file": "a.cpp", "function": "f", "original": "x = 5;", "replacement": ")" + replacement +
         R"(", "reason": ")" + reason + R"("}])";
}

TEST(EquivalentMutants, AreFoundByTheirTexts) {
  const mutation::Equivalents found = mutation::matchEquivalents(entry("x = 6;", "x is not read"), twoMutants());
  EXPECT_THAT(found.reasons, ElementsAre(Pair(1U, "x is not read")));
  EXPECT_THAT(found.errors, IsEmpty());
}

TEST(EquivalentMutants, AnEntryWithoutAMutantIsAnError) {
  const mutation::Equivalents found = mutation::matchEquivalents(entry("x = 7;", "x is not read"), twoMutants());
  EXPECT_THAT(found.errors, ElementsAre(HasSubstr("x = 7;")));
}

TEST(EquivalentMutants, AnEntryWithoutAReasonIsAnError) {
  EXPECT_THAT(mutation::matchEquivalents(entry("x = 6;", ""), twoMutants()).errors, ElementsAre(HasSubstr("reason")));
}

TEST(EquivalentMutants, AnInvalidFileIsAnError) {
  EXPECT_THROW(mutation::matchEquivalents("[{\"file\": 1}]", twoMutants()), std::runtime_error);
}

}  // namespace
