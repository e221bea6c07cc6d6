#include "mutation/literal_mutants.hpp"

#include <algorithm>
#include <cstdlib>

namespace mutation {

namespace {

bool isExcluded(const ScannedFile& file, const Span& span) {
  const std::size_t lineBegin = span.begin == 0 ? 0 : file.text.rfind('\n', span.begin - 1) + 1;
  const std::size_t first = file.text.find_first_not_of(' ', lineBegin);
  if (first != std::string::npos && file.text[first] == '#') return true;
  return std::ranges::any_of(file.staticAssertions, [&](const Span& assertion) { return assertion.contains(span); });
}

void addLiteral(const ScannedFile& file, const Span& span, const std::string& text, CXTokenKind kind,
                MutantList& list) {
  if (text == "true" || text == "false") {
    list.add(file, constantOperation, Form::Expression, {{span.begin, span.end, text == "true" ? "false" : "true"}});
  } else if (kind == CXToken_Literal && text[0] == '"') {
    const std::string suffix = text.substr(text.rfind('"') + 1);
    if (text.size() > suffix.size() + 2)
      list.add(file, constantOperation, Form::Expression, {{span.begin, span.end, "\"\"" + suffix}});
  } else if (kind == CXToken_Literal && text[0] >= '0' && text[0] <= '9') {
    const double value = std::strtod(text.c_str(), nullptr);
    const std::string zero = text.find_first_of(".eE") != std::string::npos && !text.starts_with("0x") ? "0.0" : "0";
    list.add(file, constantOperation, Form::Expression, {{span.begin, span.end, "(" + text + " + 1)"}});
    if (value != 1) list.add(file, constantOperation, Form::Expression, {{span.begin, span.end, "(" + text + " - 1)"}});
    if (value != 0) list.add(file, constantOperation, Form::Expression, {{span.begin, span.end, zero}});
    if (value != 0 && value != 1)
      list.add(file, constantOperation, Form::Expression, {{span.begin, span.end, "(" + text + " * 2)"}});
  }
}

}  // namespace

void addLiteralMutants(CXTranslationUnit unit, const std::string& path, const ScannedFile& file, MutantList& list) {
  const CXFile handle = clang_getFile(unit, path.c_str());
  if (handle == nullptr) return;
  const CXSourceRange whole =
      clang_getRange(clang_getLocationForOffset(unit, handle, 0),
                     clang_getLocationForOffset(unit, handle, static_cast<unsigned>(file.text.size())));
  CXToken* tokens = nullptr;
  unsigned count = 0;
  clang_tokenize(unit, whole, &tokens, &count);
  std::string previous;
  for (unsigned index = 0; index < count; ++index) {
    const Span span = placeOf(clang_getTokenExtent(unit, tokens[index])).span;
    const std::string text = stringOf(clang_getTokenSpelling(unit, tokens[index]));
    const CXTokenKind kind = clang_getTokenKind(tokens[index]);
    if (kind != CXToken_Comment && previous != "extern" && !isExcluded(file, span))
      addLiteral(file, span, text, kind, list);
    if (kind != CXToken_Comment) previous = text;
  }
  clang_disposeTokens(unit, tokens, count);
}

}  // namespace mutation
