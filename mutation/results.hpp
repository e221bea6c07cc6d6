// The results of the mutants, in a file that an interrupted run continues.
#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "mutation/json_lines.hpp"
#include "mutation/test_order.hpp"
#include "mutation/test_run.hpp"

namespace mutation {

enum class State {
  Killed,
  Survived,            // all tests that execute the changed code pass
  SurvivedFirstTests,  // the tests that ran pass; the others are for the second phase
  NotExecuted,         // no test executes the changed code
  DoesNotCompile,      // no mutant
  ChangesNothing,      // the preprocessor or the compiler removes the change; no mutant
};

struct MutantResult {
  State state = State::Survived;
  std::string test;  // the test that failed; empty if none did
  Outcome outcome = Outcome::Passed;
  std::size_t testCount = 0;  // the number of tests that were run
  // In the state SurvivedFirstTests: the tests that passed.
  std::vector<std::string> passedTests = {};
  // The tests that failed with the mutant, and then failed without it or passed with it.
  std::vector<std::string> unreliableTests = {};
  double seconds = 0;  // the time in one of several processes
};

// The values that identify a mutant in all runs.
struct MutantKey {
  std::string text;
  std::string function;  // the file and the function
  std::string file;
};

// The state of the sources and tests. A result for another state is not used.
struct Fingerprints {
  std::string sources;
  std::string tests;
  std::map<std::string, std::string> test;  // by name
};

class ResultFile {
 public:
  ResultFile(std::filesystem::path file, Fingerprints fingerprints);

  void append(const MutantKey& key, const MutantResult& result);
  // Reads the lines that this and other processes have appended since the last call.
  void update();

  // Returns the valid result, or nullptr if there is none.
  const MutantResult* find(const std::string& key) const;
  // Adds the kills from all results, including results for other states of the sources.
  void addKills(const MutantKey& key, TestQuery& query) const;

 private:
  const std::string& fingerprintOf(State state, const std::string& test) const;

  std::filesystem::path path_;
  LineReader reader_;
  Fingerprints fingerprints_;
  std::map<std::string, MutantResult> results_;
  std::map<std::string, std::string> lastKillers_;
  std::map<std::string, KillCounts> functionKills_;
  std::map<std::string, KillCounts> fileKills_;
};

}  // namespace mutation
