// Runs the tests with the mutants, on all processors. Its folder stores everything that a later run can use again: the
// switched copy, the code that each test executes, and the results. Changes of the sources or tests invalidate them.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "mutation/library_build.hpp"
#include "mutation/mutant.hpp"
#include "mutation/test_run.hpp"

namespace mutation {

enum class State {
  Killed,
  Survived,
  NotExecuted,     // no test executes the changed code
  DoesNotCompile,  // no mutant
  ChangesNothing,  // the preprocessor removes the change; no mutant
};

struct MutantResult {
  State state = State::Survived;
  std::string test;  // that failed; empty if none did
  Outcome outcome = Outcome::Passed;
  std::size_t testCount = 0;  // the tests that were run
};

struct Sample {
  double seconds;
  std::uint64_t seed;
};

class Campaign {
 public:
  // `output` is a folder in the build folder, `configured` a build folder in which the tests are built.
  Campaign(std::filesystem::path tree, std::filesystem::path configured, std::filesystem::path output);

  // Finds the mutants, builds the switched copy, and runs all tests with it and without a selected mutant. Throws
  // std::runtime_error if a step fails.
  void prepare();

  const std::vector<Mutant>& mutants() const { return found_.mutants; }
  // The tests that fail although no mutant is selected. They are not used.
  const std::vector<std::string>& failedTests() const { return failedTests_; }
  std::size_t usedTestCount() const { return tests_.size(); }
  const LibraryBuild& library() const { return library_; }

  // Tests the mutants that have no result yet, except for the excluded ones: all of them, or for a sample as many in
  // random order as the time permits. Returns the indices of the mutants that the sample consists of, or of all.
  std::vector<std::size_t> run(const std::map<std::size_t, std::string>& excluded, const std::optional<Sample>& sample);

  // The results so far, by index.
  std::map<std::size_t, MutantResult> results() const;

  // Runs all tests that execute the library with another copy of it.
  void runAllTests(const std::filesystem::path& library) const;

 private:
  struct KnownTest {
    Test test;
    double seconds;
    std::uint64_t calls;
    std::vector<bool> reached;
  };

  using TimePoint = std::chrono::steady_clock::time_point;

  void findMutants();
  void findReach();
  std::size_t numberCount() const { return found_.mutants.size() + found_.bodies.size() + 1; }
  std::vector<unsigned> numbersOf(std::size_t mutant) const;
  std::vector<const KnownTest*> testsFor(std::size_t mutant, const std::map<std::string, std::size_t>& kills,
                                         const std::string& lastKiller) const;
  // Returns nothing if the deadline is earlier than the result.
  std::optional<MutantResult> test(std::size_t mutant, const TestFolder& folder,
                                   const std::vector<const KnownTest*>& tests, TimePoint deadline) const;
  RunLimits limitsOf(const KnownTest& test) const;
  std::filesystem::path resultFile() const { return output_ / "results.jsonl"; }

  std::filesystem::path tree_;
  std::filesystem::path configured_;
  std::filesystem::path output_;
  LibraryBuild library_;
  std::string sourceFingerprint_;
  std::string fingerprint_;
  Mutants found_;
  std::vector<std::string> keys_;                // identify the mutants across runs
  std::vector<bool> isSwitched_;                 // by number
  std::map<std::string, unsigned> bodyNumbers_;  // by symbol
  std::vector<KnownTest> tests_;
  std::vector<std::string> failedTests_;
};

}  // namespace mutation
