// The mutants of one pass over a source and its headers, without duplicates.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "mutation/mutant.hpp"
#include "mutation/scanned_file.hpp"

namespace mutation {

// The name of the operation that changes a literal.
inline constexpr const char* constantOperation = "constant";

class MutantList {
 public:
  // Adds the mutant. Ignores a mutant that changes nothing, and a mutant that changes a part of a macro invocation,
  // unless it changes a literal or a row.
  void add(const ScannedFile& file, const char* operation, Form form, std::vector<Edit> edits);

  std::vector<Mutant> mutants;

 private:
  std::set<std::string> keys_;
};

}  // namespace mutation
