// A source file or header whose syntax tree is searched for mutants.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "mutation/syntax_tree.hpp"

namespace mutation {

// A function, type or variable that is not local to a function.
struct Declaration {
  Span span;
  Span body;  // the body of a function; empty for a declaration without a body
  std::string name;
  std::string symbol;
};

struct ScannedFile {
  std::string name;  // the file name for libclang
  std::string path;  // relative to the root
  std::string text;
  std::vector<Declaration> declarations;
  std::vector<Span> macroUses;
  std::vector<Span> staticAssertions;
  // The functions and variables that the file refers to, by the position of the reference.
  std::map<std::size_t, std::string> references;
};

// An element of the syntax tree.
struct Node {
  const ScannedFile& file;
  CXCursor cursor;
  CXCursorKind kind;
  Span span;
  const std::vector<CXCursor>& children;
};

std::string textOf(const ScannedFile& file, const Span& span);
// Returns the innermost declaration that contains the span, or nullptr.
const Declaration* innermost(const ScannedFile& file, const Span& span);
// Returns an empty span for code in another file, because a file can be included in a function.
Span spanOf(const ScannedFile& file, CXCursor cursor);

}  // namespace mutation
