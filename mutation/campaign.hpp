// Runs the tests with the mutants, in several processes. The output folder stores everything that a later run can
// reuse: the switched copy, the code that each test executes, and the results.
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
#include "mutation/reference_run.hpp"
#include "mutation/results.hpp"
#include "mutation/test_run.hpp"
#include "mutation/worker_processes.hpp"

namespace mutation {

struct Sample {
  double seconds;
  std::uint64_t seed;
};

struct CampaignFolders {
  std::filesystem::path tree;        // the root of the repository
  std::filesystem::path configured;  // a build folder in which the tests are built
  std::filesystem::path output;      // an existing folder in the build folder
};

class Campaign {
 public:
  // In the first phase, at most `maxFirstTests` tests run with each mutant.
  Campaign(CampaignFolders folders, std::size_t maxFirstTests);

  // Finds the mutants, builds the switched copy, and runs all tests with it and without a selected mutant. Throws
  // std::runtime_error if a step fails.
  void prepare();

  const std::vector<Mutant>& mutants() const { return found_.mutants; }
  // The tests that fail even if no mutant is selected. They are not used.
  const std::vector<std::string>& failedTests() const { return reference_.failedTests; }
  std::size_t usedTestCount() const { return reference_.tests.size(); }
  const LibraryBuild& library() const { return library_; }

  // Tests the mutants that have no result yet, except for the excluded mutants. Without a sample, tests all of them.
  // With a sample, tests as many of them in random order as the time permits. The second phase runs the other tests
  // with the survivors of the first phase; in a sample, it has the last quarter of the time. Returns the indices of all
  // mutants, or of the mutants in the sample.
  std::vector<std::size_t> run(const std::map<std::size_t, std::string>& excluded, const std::optional<Sample>& sample);

  // The results so far, by index.
  std::map<std::size_t, MutantResult> results() const;

  // Runs all tests that execute the library with another copy of it.
  void runAllTests(const std::filesystem::path& library) const;

 private:
  using TimePoint = std::chrono::steady_clock::time_point;
  enum class Phase { First, Second };

  void findMutants(const std::string& fingerprint);
  std::size_t numberCount() const { return found_.mutants.size() + found_.bodies.size() + 1; }
  std::vector<unsigned> numbersOf(std::size_t mutant) const;
  std::vector<const KnownTest*> testsFor(std::size_t mutant, const ResultFile& results) const;
  void runPhase(Phase phase, const std::vector<std::size_t>& order, TimePoint deadline) const;
  // Returns nothing if the deadline is earlier than the result.
  std::optional<MutantResult> testFirst(std::size_t mutant, const TestFolder& folder, const ResultFile& results,
                                        TimePoint deadline) const;
  std::optional<MutantResult> testAgain(std::size_t mutant, const MutantResult& first, const TestFolder& folder,
                                        const ResultFile& results, TimePoint deadline) const;
  std::optional<MutantResult> test(std::size_t mutant, const TestFolder& folder,
                                   const std::vector<const KnownTest*>& tests, TimePoint deadline) const;

  CampaignFolders folders_;
  std::size_t maxFirstTests_;
  FolderLock lock_;
  LibraryBuild library_;
  Mutants found_;
  std::vector<MutantKey> keys_;
  std::vector<bool> isSwitched_;                 // indexed by the number
  std::map<std::string, unsigned> bodyNumbers_;  // the keys are symbols
  ReferenceRun reference_;
  Fingerprints fingerprints_;
};

}  // namespace mutation
