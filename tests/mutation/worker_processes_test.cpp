#include "mutation/worker_processes.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

#include "mutation/files.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

class WorkerProcesses : public testing::Test {
 protected:
  test::TemporaryFolder folder_;
};

TEST_F(WorkerProcesses, ShareTheWork) {
  mutation::inProcesses([&](unsigned, mutation::Shared& shared) {
    for (std::size_t index = shared.next++; index < 10; index = shared.next++)
      mutation::writeFile(folder_.path() / std::to_string(index), "done");
  });
  for (std::size_t index = 0; index < 10; ++index)
    EXPECT_TRUE(std::filesystem::exists(folder_.path() / std::to_string(index)));
}

TEST_F(WorkerProcesses, AFailureIsAnError) {
  EXPECT_THROW(mutation::inProcesses([](unsigned worker, mutation::Shared&) {
                 if (worker == 0) throw std::runtime_error("expected by the test");
               }),
               std::runtime_error);
}

// The processes would not end by themselves. A read reaches the end of the pipe when no process has it open for
// writing.
TEST_F(WorkerProcesses, EndWhenTheProgramIsInterrupted) {
  const pid_t parent = getpid();
  std::array<int, 2> ends;
  ASSERT_EQ(pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK), 0);
  EXPECT_THROW(mutation::inProcesses([&](unsigned worker, mutation::Shared&) {
                 if (worker == 0) kill(parent, SIGTERM);
                 while (true) pause();
               }),
               std::runtime_error);
  close(ends[1]);
  char byte = 0;
  EXPECT_EQ(read(ends[0], &byte, 1), 0);
  close(ends[0]);
}

TEST_F(WorkerProcesses, TheTemporaryFolderOfAKilledProgramIsRemoved) {
  const std::filesystem::path left = folder_.path() / "mutants-left";
  std::filesystem::create_directories(left / "0");
  mutation::writeFile(folder_.path() / "temporary", left.string());
  std::filesystem::path used;
  {
    const mutation::ShortFolder temporary(folder_.path() / "temporary");
    used = temporary.path();
    EXPECT_TRUE(std::filesystem::exists(used));
    EXPECT_FALSE(std::filesystem::exists(left));
    EXPECT_EQ(mutation::readFile(folder_.path() / "temporary"), used.string());
  }
  EXPECT_FALSE(std::filesystem::exists(used));
}

TEST_F(WorkerProcesses, OnlyOneProgramLocksAFolder) {
  {
    const mutation::FolderLock lock(folder_.path());
    EXPECT_THROW(mutation::FolderLock(folder_.path()), std::runtime_error);
  }
  EXPECT_NO_THROW(mutation::FolderLock(folder_.path()));
}

}  // namespace
