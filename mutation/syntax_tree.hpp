// Access to libclang's syntax tree.
#pragma once

#include <clang-c/Index.h>

#include <cstddef>
#include <string>
#include <vector>

namespace mutation {

// A range of the bytes of a file.
struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
  bool operator==(const Span&) const = default;
  bool contains(const Span& other) const { return begin <= other.begin && other.end <= end; }
  std::size_t size() const { return end - begin; }
};

struct Place {
  std::string file;
  Span span;
};

// Converts the string and disposes of it.
std::string stringOf(CXString text);

// Returns the file and the position of the range. For code from a macro, this is the position of the macro invocation.
Place placeOf(CXSourceRange range);

std::vector<CXCursor> childrenOf(CXCursor cursor);
bool isExpression(CXCursor cursor);
bool isFunction(CXCursorKind kind);
bool isType(CXCursorKind kind);

}  // namespace mutation
