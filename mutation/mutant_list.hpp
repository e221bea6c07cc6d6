// The mutants of one pass over a source and its headers, without duplicates.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "mutation/mutant.hpp"
#include "mutation/scanned_file.hpp"

namespace mutation {

// The operation of a changed literal.
inline constexpr const char* constantOperation = "constant";

class MutantList {
 public:
  // Adds the mutant unless it changes nothing, or changes a part of a macro's use. Literals and rows can be changed in
  // macros.
  void add(const ScannedFile& file, const char* operation, Form form, std::vector<Edit> edits);

  std::vector<Mutant> mutants;

 private:
  std::set<std::string> keys_;
};

}  // namespace mutation
