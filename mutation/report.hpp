// The report of a mutation test, in Markdown.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "mutation/coverage.hpp"
#include "mutation/equivalents.hpp"
#include "mutation/mutant.hpp"
#include "mutation/results.hpp"

namespace mutation {

struct ReportData {
  const std::vector<Mutant>& mutants;
  std::vector<std::size_t> selected;  // the mutants that were to be tested
  std::map<std::size_t, MutantResult> results;
  std::map<std::size_t, std::string> equivalents;  // the reasons, by mutant
  std::map<std::string, FileCoverage> coverage;    // empty if it was not measured
  std::vector<std::string> failedTests;
  std::size_t testCount = 0;
};

struct Score {
  std::size_t killed = 0;
  std::size_t survived = 0;  // including the mutants that no test executes
  // The percentage of killed mutants; 100 if there are no mutants.
  double percent() const;
};

Score scoreOf(const ReportData& data);
std::string report(const ReportData& data);

}  // namespace mutation
