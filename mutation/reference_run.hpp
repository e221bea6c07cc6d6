// The run of all tests without a mutant. It measures the code that each test executes, and the test's duration.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "mutation/test_run.hpp"

namespace mutation {

struct KnownTest {
  Test test;
  // Identifies the test's programs and the library's sources.
  std::string fingerprint;
  double seconds = 0;
  double processorSeconds = 0;
  std::uint64_t calls = 0;
  std::vector<bool> reached;  // by number
  std::size_t reachedCount = 0;
};

// The limits of a run of the test with a mutant.
RunLimits limitsOf(const KnownTest& test);

struct ReferenceRun {
  std::vector<KnownTest> tests;          // the tests that execute the library and pass, sorted by name
  std::vector<std::string> failedTests;  // the tests that execute the library and failed twice
  std::string fingerprint;               // the fingerprint of all tests
};

// Returns the fingerprint of each test. It depends on the sources, on all programs and libraries that tests can share,
// and on the test's own files.
std::vector<std::string> fingerprintsOf(const std::vector<Test>& tests, const std::filesystem::path& configured,
                                        const std::string& sources);

struct ReferenceFolders {
  std::filesystem::path configured;
  std::filesystem::path output;  // stores the results
  std::filesystem::path library;
};

// Runs the tests that have no stored result, or whose fingerprint has changed. `count` is how many numbers the switched
// copy contains. Throws std::runtime_error if no test executes the library.
ReferenceRun runWithoutMutant(const ReferenceFolders& folders, const std::string& sources, std::size_t count);

inline constexpr RunLimits limitsWithoutMutant = {UINT64_MAX, 120, 240};

}  // namespace mutation
