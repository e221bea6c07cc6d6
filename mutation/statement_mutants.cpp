#include "mutation/statement_mutants.hpp"

namespace mutation {

namespace {

void addReturn(const ScannedFile& file, const Span& span, const std::vector<CXCursor>& children, MutantList& list) {
  if (children.empty()) {
    list.add(file, "removed statement", Form::Jump, {{span.begin, span.end, ""}});
    return;
  }
  const std::string value = textOf(file, spanOf(file, children[0]));
  if (clang_getCanonicalType(clang_getCursorType(children[0])).kind == CXType_Bool) {
    for (const char* constant : {"true", "false"})
      if (value != "true" && value != "false")
        list.add(file, "return value", Form::Jump, {{span.begin, span.end, std::string("return ") + constant}});
  } else if (value != "nullptr" && value != "{}" && value != "0") {
    list.add(file, "return value", Form::Jump, {{span.begin, span.end, "return {}"}});
  }
}

void addRows(const ScannedFile& file, CXCursor variable, const std::vector<CXCursor>& children, MutantList& list) {
  if (clang_getArrayElementType(clang_getCursorType(variable)).kind == CXType_Invalid) return;
  for (const CXCursor& child : children) {
    if (clang_getCursorKind(child) != CXCursor_InitListExpr) continue;
    const std::vector<CXCursor> rows = childrenOf(child);
    if (rows.size() < 2) continue;
    for (const CXCursor& row : rows) {
      const Span span = spanOf(file, row);
      if (span.size() == 0) continue;
      const std::size_t comma = file.text.find_first_not_of(" \n", span.end);
      const bool hasComma = comma != std::string::npos && file.text[comma] == ',';
      if (hasComma) list.add(file, "table row", Form::Row, {{span.begin, comma + 1, ""}});
    }
  }
}

// Excludes assignments, because the order of two assignments rarely matters.
bool isCall(CXCursor cursor) {
  if (clang_getCursorKind(cursor) == CXCursor_CallExpr)
    return !stringOf(clang_getCursorSpelling(cursor)).starts_with("operator");
  const std::vector<CXCursor> children = childrenOf(cursor);
  return clang_getCursorKind(cursor) == CXCursor_UnexposedExpr && children.size() == 1 && isCall(children[0]);
}

void addRemoval(const ScannedFile& file, CXCursor statement, MutantList& list) {
  if (!isExpression(statement)) return;
  const Span span = spanOf(file, statement);
  if (span.size() > 0) list.add(file, "removed statement", Form::Statement, {{span.begin, span.end, ""}});
}

// Adds the mutants of the statements in a block.
void addStatements(const ScannedFile& file, const std::vector<CXCursor>& statements, MutantList& list) {
  for (std::size_t index = 0; index < statements.size(); ++index) {
    addRemoval(file, statements[index], list);
    if (index == 0 || !isCall(statements[index]) || !isCall(statements[index - 1])) continue;
    const Span first = spanOf(file, statements[index - 1]);
    const Span second = spanOf(file, statements[index]);
    if (first.size() > 0 && second.size() > 0)
      list.add(file, "swapped calls", Form::Statement,
               {{first.begin, first.end, textOf(file, second)}, {second.begin, second.end, textOf(file, first)}});
  }
}

// Adds mutants that remove statements that are not in a block. The first expression in `if` and `while` is the
// condition.
void addBranches(const ScannedFile& file, CXCursorKind kind, const std::vector<CXCursor>& children, MutantList& list) {
  if (children.empty()) return;
  if (kind != CXCursor_IfStmt) {
    addRemoval(file, children.back(), list);
    return;
  }
  bool hasCondition = false;
  for (const CXCursor& child : children) {
    if (hasCondition) addRemoval(file, child, list);
    hasCondition = hasCondition || isExpression(child);
  }
}

}  // namespace

void addStatementMutants(const Node& node, MutantList& list) {
  switch (node.kind) {
    case CXCursor_ReturnStmt:
      addReturn(node.file, node.span, node.children, list);
      break;
    case CXCursor_BreakStmt:
    case CXCursor_ContinueStmt:
      list.add(node.file, "removed statement", Form::Jump, {{node.span.begin, node.span.end, ""}});
      break;
    case CXCursor_VarDecl:
      addRows(node.file, node.cursor, node.children, list);
      break;
    case CXCursor_CompoundStmt:
      addStatements(node.file, node.children, list);
      break;
    case CXCursor_IfStmt:
    case CXCursor_WhileStmt:
    case CXCursor_ForStmt:
    case CXCursor_CXXForRangeStmt:
      addBranches(node.file, node.kind, node.children, list);
      break;
    default:
      break;
  }
}

void addMacroRow(const ScannedFile& file, const Span& span, MutantList& list) {
  const std::size_t lineEnd = file.text.find('\n', span.end);
  const bool isLine = (span.begin == 0 || file.text[span.begin - 1] == '\n') && lineEnd == span.end;
  if (isLine) list.add(file, "table row", Form::Row, {{span.begin, span.end, ""}});
}

}  // namespace mutation
