#include "mutation/expression_mutants.hpp"

#include <algorithm>

namespace mutation {

namespace {

// The replacements of an operator.
struct Operator {
  const char* text;
  const char* operation;
  std::vector<const char*> replacements;
};
const std::vector<Operator>& operators() {
  static const std::vector<Operator> table = {
      {"<", "comparison", {"<=", ">="}},  {"<=", "comparison", {"<", ">"}},   {">", "comparison", {">=", "<="}},
      {">=", "comparison", {">", "<"}},   {"==", "comparison", {"!="}},       {"!=", "comparison", {"=="}},
      {"&&", "logical operator", {"||"}}, {"||", "logical operator", {"&&"}}, {"+", "arithmetic", {"-"}},
      {"-", "arithmetic", {"+"}},         {"*", "arithmetic", {"/"}},         {"/", "arithmetic", {"*"}},
      {"+=", "arithmetic", {"-="}},       {"-=", "arithmetic", {"+="}},       {"|", "arithmetic", {"&"}},
      {"&", "arithmetic", {"|"}},
  };
  return table;
}

std::string trimmed(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(" \n");
  return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \n") - begin + 1);
}

// An expression with two operands begins with the first operand and ends with the second. The operator is between them.
void addOperators(const ScannedFile& file, const Span& span, const std::vector<CXCursor>& children, MutantList& list) {
  if (children.size() != 2 && children.size() != 3) return;
  const Span left = spanOf(file, children.front());
  const Span right = spanOf(file, children.back());
  if (left.begin != span.begin || right.end != span.end || left.end >= right.begin) return;
  const Span between = {left.end, right.begin};
  const std::string text = trimmed(textOf(file, between));
  for (const Operator& candidate : operators()) {
    if (text != candidate.text) continue;
    for (const char* replacement : candidate.replacements)
      list.add(file, candidate.operation, Form::Expression,
               {{span.begin, span.end, textOf(file, left) + " " + replacement + " " + textOf(file, right)}});
  }
}

bool isComparison(const ScannedFile& file, CXCursor cursor) {
  const std::vector<CXCursor> children = childrenOf(cursor);
  if (children.size() == 1 && spanOf(file, children[0]) == spanOf(file, cursor)) return isComparison(file, children[0]);
  if (children.size() < 2) return false;
  const Span between = {spanOf(file, children.front()).end, spanOf(file, children.back()).begin};
  if (between.begin >= between.end) return false;
  const std::string text = trimmed(textOf(file, between));
  return std::ranges::any_of(operators(), [&](const Operator& candidate) {
    return text == candidate.text && std::string(candidate.operation) == "comparison";
  });
}

void addNegation(const ScannedFile& file, const std::vector<CXCursor>& children, MutantList& list) {
  if (children.empty() || !isExpression(children[0]) || isComparison(file, children[0])) return;
  const Span span = spanOf(file, children[0]);
  const std::string text = textOf(file, span);
  if (text.empty() || text[0] == '!') return;
  list.add(file, "negated condition", Form::Condition, {{span.begin, span.end, "!(" + text + ")"}});
}

void addUnaryOperator(const ScannedFile& file, const Span& span, const std::vector<CXCursor>& children,
                      MutantList& list) {
  const std::string text = textOf(file, span) + " ";
  if (children.empty() || (text[0] != '!' && !(text[0] == '-' && text[1] != '-'))) return;
  list.add(file, text[0] == '!' ? "negated condition" : "arithmetic",
           text[0] == '!' ? Form::Condition : Form::Expression,
           {{span.begin, span.end, textOf(file, spanOf(file, children[0]))}});
}

void addSwappedArguments(const ScannedFile& file, CXCursor call, const Span& span, MutantList& list) {
  if (stringOf(clang_getCursorSpelling(call)).starts_with("operator")) return;
  const int count = clang_Cursor_getNumArguments(call);
  for (int index = 0; index + 1 < count; ++index) {
    const CXCursor first = clang_Cursor_getArgument(call, static_cast<unsigned>(index));
    const CXCursor second = clang_Cursor_getArgument(call, static_cast<unsigned>(index) + 1);
    const Span left = spanOf(file, first);
    const Span right = spanOf(file, second);
    if (left.size() == 0 || right.size() == 0 || !span.contains(left) || !span.contains(right)) continue;
    const auto type = [](CXCursor argument) {
      return stringOf(clang_getTypeSpelling(clang_getCanonicalType(clang_getCursorType(argument))));
    };
    if (left.end > right.begin || type(first) != type(second) || textOf(file, left) == textOf(file, right)) continue;
    list.add(file, "swapped arguments", Form::Expression,
             {{left.begin, left.end, textOf(file, right)}, {right.begin, right.end, textOf(file, left)}});
  }
}

}  // namespace

void addExpressionMutants(const Node& node, MutantList& list) {
  addOperators(node.file, node.span, node.children, list);
  switch (node.kind) {
    case CXCursor_IfStmt:
    case CXCursor_WhileStmt:
    case CXCursor_ConditionalOperator:
      addNegation(node.file, node.children, list);
      break;
    case CXCursor_UnaryOperator:
      addUnaryOperator(node.file, node.span, node.children, list);
      break;
    case CXCursor_CallExpr:
      addSwappedArguments(node.file, node.cursor, node.span, list);
      break;
    default:
      break;
  }
}

}  // namespace mutation
