#include "mutation/compiler_errors.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using mutation::Lines;
using testing::ElementsAre;
using testing::IsEmpty;

// Line 2 contains the code of mutant 1 and, inside it, of mutant 2.
std::map<std::string, mutation::SwitchedSource> oneSource() {
  mutation::SwitchedSource source;
  source.text = "int x =\n  (one (two));\n";
  source.ranges = {{1, 10, 21}, {2, 15, 20}};
  return {{"library/a.cpp", source}};
}

std::set<unsigned> numbersIn(const std::string& output, Lines lines = Lines::Errors) {
  return mutation::erroneousNumbers(output, {"/tree/build/release", "/tree/build/mutants/switched"}, oneSource(),
                                    lines);
}

TEST(CompilerErrors, BelongToTheInnermostMutantAtTheirPosition) {
  EXPECT_THAT(numbersIn("/tree/build/mutants/switched/library/a.cpp:2:9: error: no member\n"), ElementsAre(2U));
  EXPECT_THAT(numbersIn("/tree/build/mutants/switched/library/a.cpp:2:4: error: no member\n"), ElementsAre(1U));
}

TEST(CompilerErrors, CanHavePathsRelativeToTheWorkingFolder) {
  EXPECT_THAT(numbersIn("../mutants/switched/library/a.cpp:2:9: error: no member\n"), ElementsAre(2U));
}

TEST(CompilerErrors, BelongToAllMutantsOfTheLineIfTheyAreOutsideOfMutants) {
  EXPECT_THAT(numbersIn("../mutants/switched/library/a.cpp:2:1: error: no member\n"), ElementsAre(1U, 2U));
}

TEST(CompilerErrors, AreIgnoredInOtherFiles) {
  EXPECT_THAT(numbersIn("/tree/library/a.cpp:2:9: error: no member\n/usr/include/a.hpp:2:9: error: x\n"), IsEmpty());
}

TEST(CompilerErrors, NotesAreUsedOnlyOnRequest) {
  const std::string output = "../mutants/switched/library/a.cpp:2:9: note: required from here\n";
  EXPECT_THAT(numbersIn(output), IsEmpty());
  EXPECT_THAT(numbersIn(output, Lines::All), ElementsAre(2U));
}

}  // namespace
