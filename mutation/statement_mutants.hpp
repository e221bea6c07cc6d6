// The mutants of statements and of the rows of tables.
#pragma once

#include "mutation/mutant_list.hpp"
#include "mutation/scanned_file.hpp"

namespace mutation {

void addStatementMutants(const Node& node, MutantList& list);
// Adds the removal of a macro's use that is a line.
void addMacroRow(const ScannedFile& file, const Span& span, MutantList& list);

}  // namespace mutation
