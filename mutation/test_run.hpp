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
  std::uint64_t calls;      // the calls of switched code; a deterministic limit
  double processorSeconds;  // for each process
  double seconds;           // for the whole run
};

struct TestRun {
  Outcome outcome = Outcome::Failed;
  double seconds = 0;
  double processorSeconds = 0;
  std::uint64_t calls = 0;
  // The value for each number is true if its code was executed.
  std::vector<bool> reached;
};

// A folder that is laid out like a build folder, because the simulator finds the library relative to its own path. The
// library in this folder can be replaced. Each process must use its own folder.
class TestFolder {
 public:
  // `temporary` is an empty folder with a short path, because a socket's path has at most 107 characters. Its contents
  // are removed after each test.
  TestFolder(const std::filesystem::path& configured, std::filesystem::path folder, std::filesystem::path temporary);

  const std::filesystem::path& path() const { return folder_; }
  void useLibrary(const std::filesystem::path& library) const;

  // Runs a test with the mutant `selected`, or with no mutant if `selected` is 0. `count` is how many numbers the
  // switched copy contains. Afterwards, ends all processes that the test has left running.
  TestRun run(const Test& test, unsigned selected, std::size_t count, const RunLimits& limits) const;

 private:
  std::filesystem::path folder_;
  std::filesystem::path temporary_;
};

}  // namespace mutation
