// Runs single tests with a copy of the library.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace mutation {

struct Test {
  std::string name;
  std::vector<std::string> command;
  std::string folder;  // the working folder
  // NAME=VALUE, in addition to the environment of the mutation test.
  std::vector<std::string> environment = {};
  // If not empty, the test passes if its output matches one of these regular expressions, regardless of its exit
  // status.
  std::vector<std::string> passExpressions = {};
};

// Returns the tests of a configured build folder. Throws std::runtime_error if CTest cannot list them.
std::vector<Test> listTests(const std::filesystem::path& configured);

enum class Outcome { Passed, Failed, TooManyCalls, TooLong };

struct RunLimits {
  std::uint64_t calls;      // of switched code; a deterministic limit
  double processorSeconds;  // of each process
  double seconds;           // of the duration
};

struct TestRun {
  Outcome outcome = Outcome::Failed;
  double seconds = 0;
  double processorSeconds = 0;
  std::uint64_t calls = 0;
  // For each number, whether its code was executed.
  std::vector<bool> reached;
};

// A folder with the layout of a build folder, in which the library can be replaced. The simulator finds the library
// relative to its own path. Each process must use its own folder.
class TestFolder {
 public:
  // `temporary` is an empty folder with a short path, because a socket's path has at most 107 characters. Its contents
  // are removed after each test.
  TestFolder(const std::filesystem::path& configured, std::filesystem::path folder, std::filesystem::path temporary);

  const std::filesystem::path& path() const { return folder_; }
  void useLibrary(const std::filesystem::path& library) const;

  // Runs a test with mutant `selected`, or with no mutant if it is 0. `count` is the number of numbers in the switched
  // copy. Afterwards, ends all processes that the test has left.
  TestRun run(const Test& test, unsigned selected, std::size_t count, const RunLimits& limits) const;

 private:
  std::filesystem::path folder_;
  std::filesystem::path temporary_;
};

}  // namespace mutation
