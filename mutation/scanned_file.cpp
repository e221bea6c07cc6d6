#include "mutation/scanned_file.hpp"

namespace mutation {

std::string textOf(const ScannedFile& file, const Span& span) { return file.text.substr(span.begin, span.size()); }

const Declaration* innermost(const ScannedFile& file, const Span& span) {
  const Declaration* found = nullptr;
  for (const Declaration& declaration : file.declarations)
    if (declaration.span.contains(span) && (found == nullptr || found->span.contains(declaration.span)))
      found = &declaration;
  return found;
}

Span spanOf(const ScannedFile& file, CXCursor cursor) {
  const Place place = placeOf(clang_getCursorExtent(cursor));
  return place.file == file.name ? place.span : Span();
}

}  // namespace mutation
