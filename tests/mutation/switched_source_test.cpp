#include "mutation/switched_source.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using mutation::Form;
using mutation::Mutant;
using testing::ElementsAre;

Mutant mutantOf(Form form, std::vector<mutation::Edit> edits) {
  Mutant mutant;
  mutant.form = form;
  mutant.edits = std::move(edits);
  return mutant;
}

std::string written(const std::string& text, const std::vector<Mutant>& mutants) {
  std::vector<mutation::NumberedMutant> numbered;
  numbered.reserve(mutants.size());
  for (const Mutant& mutant : mutants) numbered.push_back({static_cast<unsigned>(numbered.size()) + 1, &mutant});
  return mutation::switchedSource(text, numbered, {}).text;
}

TEST(SwitchedSource, SelectsOneOfTheReplacementsOfAnExpression) {
  EXPECT_EQ(written("x = 5;", {mutantOf(Form::Expression, {{4, 5, "6"}}), mutantOf(Form::Expression, {{4, 5, "0"}})}),
            "x = (brimMutantIsOn(1) ? (6) : brimMutantIsOn(2) ? (0) : (5));");
}

TEST(SwitchedSource, ContainsMutantsInsideTheOriginalOfAnotherOne) {
  EXPECT_EQ(
      written("a < 5;", {mutantOf(Form::Expression, {{0, 5, "a > 5"}}), mutantOf(Form::Expression, {{4, 5, "6"}})}),
      "(brimMutantIsOn(1) ? (a > 5) : (a < (brimMutantIsOn(2) ? (6) : (5))));");
}

TEST(SwitchedSource, RemovesAStatement) {
  EXPECT_EQ(written("f();", {mutantOf(Form::Statement, {{0, 3, ""}})}),
            "(brimMutantIsOn(1) ? static_cast<void>(0) : static_cast<void>(f()));");
}

TEST(SwitchedSource, AReplacedReturnStaysInItsBranch) {
  EXPECT_EQ(written("if (a) return b; else g();", {mutantOf(Form::Jump, {{7, 15, "return {}"}})}),
            "if (a) if (brimMutantIsOn(1)) return {}; else return b; else g();");
}

TEST(SwitchedSource, SwapsTwoTextsAsOneMutant) {
  EXPECT_EQ(written("f(a, b)", {mutantOf(Form::Expression, {{2, 3, "b"}, {5, 6, "a"}})}),
            "f((brimMutantIsOn(1) ? (b) : (a)), (brimMutantIsOn(1) ? (a) : (b)))");
}

TEST(SwitchedSource, LogsTheExecutionOfABodyBeforeItsFirstStatement) {
  const Mutant removal = mutantOf(Form::Statement, {{1, 4, ""}});
  EXPECT_EQ(
      mutation::switchedSource("{f();}", {{1, &removal}}, {{9, 1}}).text,
      "{ static_cast<void>(brimMutantIsOn(9));(brimMutantIsOn(1) ? static_cast<void>(0) : static_cast<void>(f()));}");
}

TEST(SwitchedSource, OmitsAMutantThatOverlapsPartlyWithAnother) {
  const Mutant first = mutantOf(Form::Expression, {{0, 3, "x"}});
  const Mutant second = mutantOf(Form::Expression, {{2, 5, "y"}});
  const mutation::SwitchedSource source = mutation::switchedSource("abcdef", {{1, &first}, {2, &second}}, {});
  EXPECT_THAT(source.omitted, ElementsAre(2U));
  EXPECT_EQ(source.text, "(brimMutantIsOn(1) ? (x) : (abc))def");
}

TEST(SwitchedSource, FindsTheInnermostMutantAtAPosition) {
  const Mutant outer = mutantOf(Form::Expression, {{0, 5, "a > 5"}});
  const Mutant inner = mutantOf(Form::Expression, {{4, 5, "6"}});
  const mutation::SwitchedSource source = mutation::switchedSource("a < 5;", {{1, &outer}, {2, &inner}}, {});
  EXPECT_THAT(source.numbersAt(source.text.find('6')), ElementsAre(2U));
  EXPECT_THAT(source.numbersAt(source.text.find('>')), ElementsAre(1U));
}

}  // namespace
