// Finds the possible mutants of C++ sources, with libclang. Throws std::runtime_error if a source cannot be parsed.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "mutation/mutant.hpp"

namespace mutation {

class MutantFinder {
 public:
  // `tree` is the root of the repository. Only files in `folder`, which is relative to the root, have mutants.
  MutantFinder(std::filesystem::path tree, std::string folder);

  // Adds the mutants of the source and of its headers in the folder, except for headers that an earlier source
  // included. `options` are compiler options, without file names.
  void addSource(const std::filesystem::path& source, const std::vector<std::string>& options);

  // Returns the mutants of all added sources, sorted by file and position.
  Mutants found() const;

 private:
  std::filesystem::path tree_;
  std::string folder_;
  std::set<std::string> scannedFiles_;
  Mutants found_;
  // For each function or variable, the functions and variables that refer to it. Names are unified symbol resolutions.
  std::set<std::pair<std::string, std::string>> references_;
  std::set<std::string> functions_;
};

}  // namespace mutation
