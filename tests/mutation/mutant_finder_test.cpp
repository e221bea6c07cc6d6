#include "mutation/mutant_finder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/temporary_folder.hpp"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

class SmallSource : public testing::Test {
 protected:
  std::vector<mutation::Mutant> mutantsOf(const std::string& text) {
    std::filesystem::create_directories(folder_.path() / "code");
    const std::filesystem::path path = folder_.path() / "code/small.cpp";
    std::ofstream(path) << text;
    mutation::MutantFinder finder(folder_.path(), "code");
    finder.addSource(path, {"-std=c++20"});
    return finder.found().mutants;
  }

  // Returns the changed lines of the mutants of one operation.
  std::vector<std::string> replacements(const std::string& operation, const std::string& text) {
    std::vector<std::string> found;
    for (const mutation::Mutant& mutant : mutantsOf(text))
      if (mutant.operation == operation) found.push_back(mutant.replacement);
    return found;
  }

  test::TemporaryFolder folder_;
};

TEST_F(SmallSource, AComparisonIsShiftedAndNegated) {
  EXPECT_THAT(
      replacements("comparison", "bool f(int a, int b) { return a < b; }\n"),
      UnorderedElementsAre("bool f(int a, int b) { return a <= b; }", "bool f(int a, int b) { return a >= b; }"));
}

TEST_F(SmallSource, AnOverloadedComparisonIsNegated) {
  EXPECT_THAT(
      replacements("comparison", "struct S {};\nbool operator==(S, S);\nbool f(S a, S b)\n{ return a == b; }\n"),
      ElementsAre("{ return a != b; }"));
}

TEST_F(SmallSource, ALogicalOperatorIsReplaced) {
  EXPECT_THAT(replacements("logical operator", "bool f(bool a, bool b, bool c)\n{ return a && b || c; }\n"),
              UnorderedElementsAre("{ return a || b || c; }", "{ return a && b && c; }"));
}

TEST_F(SmallSource, AConditionIsNegated) {
  EXPECT_THAT(replacements("negated condition", "int f(bool a, bool b) {\nif (a) return 1;\nreturn !b ? 2 : 3;\n}\n"),
              UnorderedElementsAre("if (!(a)) return 1;", "return b ? 2 : 3;"));
}

TEST_F(SmallSource, LiteralsAreChanged) {
  EXPECT_THAT(replacements("constant", "int number = 5;\nconst char* text = \"abc\";\nbool flag = true;\n"),
              UnorderedElementsAre("int number = (5 + 1);", "int number = (5 - 1);", "int number = 0;",
                                   "int number = (5 * 2);", "const char* text = \"\";", "bool flag = false;"));
}

TEST_F(SmallSource, LiteralsInDirectivesAndStaticAssertionsAreNotChanged) {
  EXPECT_THAT(mutantsOf("#define LIMIT 5\nstatic_assert(LIMIT == 5, \"text\");\n"), IsEmpty());
}

TEST_F(SmallSource, StatementsAreRemovedAndCallsAreSwapped) {
  const std::string text = "void g(); void h(); int x;\nvoid f() {\ng();\nh();\nx = 7;\n}\n";
  EXPECT_THAT(replacements("removed statement", text), UnorderedElementsAre(";", ";", ";"));
  EXPECT_THAT(replacements("swapped calls", text), ElementsAre("h(); g();"));
}

TEST_F(SmallSource, AReturnIsRemovedOrReturnsAnotherValue) {
  EXPECT_THAT(replacements("removed statement", "void f(bool a) {\nif (a) return;\n}\n"), ElementsAre("if (a) ;"));
  EXPECT_THAT(replacements("return value", "bool g();\nbool f() {\nreturn g();\n}\n"),
              UnorderedElementsAre("return true;", "return false;"));
  EXPECT_THAT(replacements("return value", "int* g();\nint* f() {\nreturn g();\n}\n"), ElementsAre("return {};"));
}

TEST_F(SmallSource, ArgumentsOfEqualTypeAreSwapped) {
  EXPECT_THAT(
      replacements("swapped arguments", "void g(int, int, char);\nvoid f(int a, int b, char c) {\ng(a, b, c);\n}\n"),
      ElementsAre("g(b, a, c);"));
}

TEST_F(SmallSource, RowsOfTablesAreRemoved) {
  EXPECT_THAT(replacements("table row", "int table[] = {\n10,\n20,\n};\n"), ElementsAre("", ""));
}

TEST_F(SmallSource, ARowOfAMacroIsRemovedOnceAlthoughTwoSourcesIncludeIt) {
  std::filesystem::create_directories(folder_.path() / "code");
  std::ofstream(folder_.path() / "code/list.hpp") << "ROW(first)\nROW(second)\n";
  mutation::MutantFinder finder(folder_.path(), "code");
  for (const char* name : {"code/a.cpp", "code/b.cpp"}) {
    std::ofstream(folder_.path() / name) << "#define ROW(name) extern int name;\n#include \"list.hpp\"\n";
    finder.addSource(folder_.path() / name, {"-std=c++20"});
  }
  std::vector<std::string> removed;
  for (const mutation::Mutant& mutant : finder.found().mutants) removed.push_back(mutant.original);
  EXPECT_THAT(removed, ElementsAre("ROW(first)", "ROW(second)"));
}

TEST_F(SmallSource, AMutantNamesTheFunctionThatContainsIt) {
  for (const mutation::Mutant& mutant : mutantsOf("bool first(int a)\n{ return a < 3; }\n")) {
    EXPECT_EQ(mutant.function, "first");
    EXPECT_EQ(mutant.line, 2U);
    EXPECT_TRUE(mutant.isInBody);
    EXPECT_EQ(mutant.executedBy.size(), 1U);
  }
}

TEST_F(SmallSource, AConstantIsExecutedByTheFunctionsThatUseIt) {
  const std::vector<mutation::Mutant> mutants =
      mutantsOf("constexpr int base = 3;\nconstexpr int sum = base;\nint f() { return sum; }\nint g() { return 2; }\n");
  ASSERT_THAT(mutants, Not(IsEmpty()));
  EXPECT_FALSE(mutants.front().isInBody);
  EXPECT_THAT(mutants.front().executedBy, ElementsAre("c:@F@f#"));
}

TEST_F(SmallSource, AnInvalidSourceIsAnError) {
  EXPECT_THROW(mutantsOf("int f() { return unknown; }\n"), std::runtime_error);
}

}  // namespace
