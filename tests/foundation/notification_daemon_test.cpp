#include <gtest/gtest.h>
#include <sys/types.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "tests/objc/runtime_environment.hpp"

namespace {

namespace fs = std::filesystem;

// The values that use_root prints: the folder of the daemon's sockets, the process ID of the daemon, and whether the
// entry "root" of the folder is a link or a folder.
struct Daemon {
  fs::path folder;
  pid_t process = 0;
  std::string rootKind;
};

bool isRunning(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/stat");
  std::string number;
  std::string name;
  std::string state;
  return static_cast<bool>(status >> number >> name >> state) && state != "Z";
}

void waitForEnd(const Daemon& daemon) {
  for (int tries = 0; isRunning(daemon.process) && tries < 1000; ++tries)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

enum class Ending { Exit, RemovedRoot, Killed };

const char* nameOf(Ending ending) {
  switch (ending) {
    case Ending::Exit:
      return "exit";
    case Ending::RemovedRoot:
      return "removed-root";
    case Ending::Killed:
      return "killed";
  }
  return "";
}

// Runs use_root with the arguments and returns its output.
Daemon runProcessOfRoot(const fs::path& root, Ending ending) {
  const fs::path output = testRoot() / "daemon.txt";
  const std::string command = "env -u GNUSTEP_CONFIG_FILE -u TEMP -u TMP " USE_ROOT " '" + root.string() + "' " +
                              nameOf(ending) + " > '" + output.string() + "'";
  static_cast<void>(std::system(command.c_str()));
  Daemon daemon;
  std::ifstream(output) >> daemon.folder >> daemon.process >> daemon.rootKind;
  return daemon;
}

using NotificationDaemon = RuntimeTest;

TEST_F(NotificationDaemon, EndsWithTheLastProcessOfItsRoot) {
  const Daemon daemon = runProcessOfRoot(testRoot() / "a", Ending::Exit);
  ASSERT_GT(daemon.process, 0);
  waitForEnd(daemon);
  EXPECT_FALSE(isRunning(daemon.process));
  EXPECT_FALSE(fs::exists(daemon.folder));
}

TEST_F(NotificationDaemon, EndsEvenIfTheRootWasRemoved) {
  const Daemon daemon = runProcessOfRoot(testRoot() / "b", Ending::RemovedRoot);
  ASSERT_GT(daemon.process, 0);
  waitForEnd(daemon);
  EXPECT_FALSE(isRunning(daemon.process));
  EXPECT_FALSE(fs::exists(daemon.folder));
}

TEST_F(NotificationDaemon, DaemonOfAKilledProcessEndsWhenAnotherRootIsUsed) {
  const Daemon stale = runProcessOfRoot(testRoot() / "c", Ending::Killed);
  ASSERT_GT(stale.process, 0);
  const Daemon next = runProcessOfRoot(testRoot() / "d", Ending::Exit);
  EXPECT_NE(stale.folder, next.folder);
  waitForEnd(stale);
  EXPECT_FALSE(isRunning(stale.process));
  EXPECT_FALSE(fs::exists(stale.folder));
}

// If a folder is removed while its daemon starts, the daemon creates the folder again, but without a lock, and the
// folder remains. A test that runs at the same time can remove the stale folder first; the result is the same.
TEST_F(NotificationDaemon, FolderWithoutALockIsRemovedWhenAnotherRootIsUsed) {
  const fs::path stale = "/tmp/brim-" + std::to_string(getuid()) + "-left" + std::to_string(getpid());
  std::error_code ignored;
  fs::create_directories(stale / "NSMessagePort/names", ignored);
  runProcessOfRoot(testRoot() / "e", Ending::Exit);
  EXPECT_FALSE(fs::exists(stale));
}

TEST_F(NotificationDaemon, LinkToTheRootReplacesAFolder) {
  const fs::path folder = runProcessOfRoot(testRoot() / "g", Ending::Exit).folder;
  ASSERT_FALSE(folder.empty());
  std::error_code ignored;
  fs::create_directories(folder / "root/Library", ignored);
  EXPECT_EQ(runProcessOfRoot(testRoot() / "g", Ending::Exit).rootKind, "link");
}

TEST_F(NotificationDaemon, LinkInsteadOfADaemonFolderIsNotFollowed) {
  const fs::path link = "/tmp/brim-" + std::to_string(getuid()) + "-link" + std::to_string(getpid());
  fs::create_directories(testRoot() / "elsewhere");
  fs::create_directory_symlink(testRoot() / "elsewhere", link);
  runProcessOfRoot(testRoot() / "f", Ending::Exit);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_TRUE(fs::is_empty(testRoot() / "elsewhere"));
  fs::remove(link);
}

TEST_F(NotificationDaemon, WorksForRootsWithLongPaths) {
  const fs::path root = testRoot() / std::string(200, 'x') / std::string(200, 'y');
  EXPECT_GT(runProcessOfRoot(root, Ending::Exit).process, 0);
}

}  // namespace
