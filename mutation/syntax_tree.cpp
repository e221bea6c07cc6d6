#include "mutation/syntax_tree.hpp"

namespace mutation {

std::string stringOf(CXString text) {
  const char* characters = clang_getCString(text);
  std::string result = characters == nullptr ? "" : characters;
  clang_disposeString(text);
  return result;
}

Place placeOf(CXSourceRange range) {
  CXFile file = nullptr;
  unsigned begin = 0;
  unsigned end = 0;
  clang_getExpansionLocation(clang_getRangeStart(range), &file, nullptr, nullptr, &begin);
  clang_getExpansionLocation(clang_getRangeEnd(range), nullptr, nullptr, nullptr, &end);
  return {file == nullptr ? "" : stringOf(clang_getFileName(file)), {begin, end}};
}

std::vector<CXCursor> childrenOf(CXCursor cursor) {
  std::vector<CXCursor> children;
  clang_visitChildren(
      cursor,
      [](CXCursor child, CXCursor, CXClientData data) {
        static_cast<std::vector<CXCursor>*>(data)->push_back(child);
        return CXChildVisit_Continue;
      },
      &children);
  return children;
}

bool isExpression(CXCursor cursor) { return clang_isExpression(clang_getCursorKind(cursor)) != 0; }

bool isFunction(CXCursorKind kind) {
  return kind == CXCursor_FunctionDecl || kind == CXCursor_CXXMethod || kind == CXCursor_Constructor ||
         kind == CXCursor_Destructor || kind == CXCursor_ConversionFunction || kind == CXCursor_FunctionTemplate;
}

bool isType(CXCursorKind kind) {
  return kind == CXCursor_StructDecl || kind == CXCursor_ClassDecl || kind == CXCursor_ClassTemplate ||
         kind == CXCursor_ClassTemplatePartialSpecialization || kind == CXCursor_EnumDecl;
}

}  // namespace mutation
