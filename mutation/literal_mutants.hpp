// The mutants of literals, including literals in the arguments of macros.
#pragma once

#include <string>

#include "mutation/mutant_list.hpp"
#include "mutation/scanned_file.hpp"

namespace mutation {

// `path` is the path of the file in the translation unit.
void addLiteralMutants(CXTranslationUnit unit, const std::string& path, const ScannedFile& file, MutantList& list);

}  // namespace mutation
