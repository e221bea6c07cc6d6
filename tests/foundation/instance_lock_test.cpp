// Tests of the lock that allows only one process of a kind for each root.
#include "simulator/process/instance_lock.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include "tests/support/temporary_folder.hpp"

namespace {

namespace fs = std::filesystem;
using process::lockInstance;

constexpr const char* name = "phone.lock";

class InstanceLock : public testing::Test {
 protected:
  std::string lockFileText() const {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  test::TemporaryFolder temporaryFolder;
  const fs::path folder = temporaryFolder.path() / "created by the lock";
  const fs::path path = folder / name;
};

TEST_F(InstanceLock, IsAcquiredOnlyOnceAtATime) {
  {
    const foundation::FileDescriptor first = lockInstance(folder, name);
    ASSERT_TRUE(first.isOpen());
    EXPECT_FALSE(lockInstance(folder, name).isOpen());
  }
  EXPECT_TRUE(lockInstance(folder, name).isOpen());
}

TEST_F(InstanceLock, ReplacesTheFilesTextWithTheOwnersProcessIdentifier) {
  fs::create_directories(folder);
  std::ofstream(path) << "12345678901234567890\n";
  const foundation::FileDescriptor lock = lockInstance(folder, name);
  EXPECT_EQ(lockFileText(), std::to_string(getpid()) + "\n");
}

TEST_F(InstanceLock, IsNotModifiedByAFailedAttempt) {
  const foundation::FileDescriptor lock = lockInstance(folder, name);
  std::ofstream(path) << "owner\n";
  EXPECT_FALSE(lockInstance(folder, name).isOpen());
  EXPECT_EQ(lockFileText(), "owner\n");
}

// An app can start the notification daemon, which outlives the app and must not hold the lock.
TEST_F(InstanceLock, IsNotInheritedByChildProcesses) {
  const fs::path started = temporaryFolder.path() / "started";
  FILE* child = nullptr;
  {
    const foundation::FileDescriptor lock = lockInstance(folder, name);
    child = popen(("touch '" + started.string() + "'; cat > /dev/null").c_str(), "w");
    // In the emulator, popen returns before the child executes the shell.
    while (!fs::exists(started)) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  EXPECT_TRUE(lockInstance(folder, name).isOpen());
  pclose(child);
}

TEST_F(InstanceLock, ThrowsIfItsFileCannotBeCreated) {
  std::ofstream(temporaryFolder.path() / "file") << "in the way";
  EXPECT_THROW(lockInstance(temporaryFolder.path() / "file" / "folder", name), fs::filesystem_error);
}

}  // namespace
