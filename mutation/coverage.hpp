// Line and branch coverage, from the counters that gcov reads.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace mutation {

struct FileCoverage {
  std::map<unsigned, bool> lines;  // whether each line with code was executed
  std::size_t branches = 0;
  std::size_t takenBranches = 0;
};

// Reads the counters in a folder. Returns the coverage of the files below the folder `prefix`. The keys are paths
// relative to the root of the repository. Throws std::runtime_error if gcov fails.
std::map<std::string, FileCoverage> readCoverage(const std::filesystem::path& folder, const std::filesystem::path& tree,
                                                 const std::string& prefix);

}  // namespace mutation
