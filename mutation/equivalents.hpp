// The mutants that no test can detect, each with the reason. They are in a JSON file: a list of objects with the
// members file, function, original, replacement and reason. The first four have the same values as in the report.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "mutation/mutant.hpp"

namespace mutation {

struct Equivalents {
  std::map<std::size_t, std::string> reasons;  // by the mutant's index
  std::vector<std::string> errors;             // one for each entry that matches no mutant or has no reason
};

// Throws std::runtime_error if the text is not a list of such objects.
Equivalents matchEquivalents(const std::string& text, const std::vector<Mutant>& mutants);

}  // namespace mutation
