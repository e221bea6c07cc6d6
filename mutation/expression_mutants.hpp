// The mutants of operators, conditions and arguments.
#pragma once

#include "mutation/mutant_list.hpp"
#include "mutation/scanned_file.hpp"

namespace mutation {

void addExpressionMutants(const Node& node, MutantList& list);

}  // namespace mutation
