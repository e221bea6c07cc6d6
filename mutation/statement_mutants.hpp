// The mutants of statements and of the rows of tables.
#pragma once

#include "mutation/mutant_list.hpp"
#include "mutation/scanned_file.hpp"

namespace mutation {

void addStatementMutants(const Node& node, MutantList& list);
// Adds a mutant that removes a macro invocation if the invocation is a whole line.
void addMacroRow(const ScannedFile& file, const Span& span, MutantList& list);

}  // namespace mutation
