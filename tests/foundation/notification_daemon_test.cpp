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

// The place of the daemon as the process tells it, the daemon's number, and what the root is in the place.
struct Daemon {
  fs::path place;
  pid_t process = 0;
  std::string root;
};

bool isRunning(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/stat");
  std::string number;
  std::string name;
  std::string state;
  return static_cast<bool>(status >> number >> name >> state) && state != "Z";
}

void waitUntilGone(const Daemon& daemon) {
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

// Runs a process of a root of its own that posts a notification and ends as told.
Daemon runProcessOfRoot(const fs::path& root, Ending ending) {
  const fs::path told = testRoot() / "daemon.txt";
  const std::string command = "env -u GNUSTEP_CONFIG_FILE -u TEMP -u TMP " USE_ROOT " '" + root.string() + "' " +
                              nameOf(ending) + " > '" + told.string() + "'";
  static_cast<void>(std::system(command.c_str()));
  Daemon daemon;
  std::ifstream(told) >> daemon.place >> daemon.process >> daemon.root;
  return daemon;
}

using NotificationDaemon = RuntimeTest;

TEST_F(NotificationDaemon, EndsWithTheLastProcessOfItsRoot) {
  const Daemon daemon = runProcessOfRoot(testRoot() / "a", Ending::Exit);
  ASSERT_GT(daemon.process, 0);
  waitUntilGone(daemon);
  EXPECT_FALSE(isRunning(daemon.process));
  EXPECT_FALSE(fs::exists(daemon.place));
}

TEST_F(NotificationDaemon, EndsAlthoughTheRootIsGone) {
  const Daemon daemon = runProcessOfRoot(testRoot() / "b", Ending::RemovedRoot);
  ASSERT_GT(daemon.process, 0);
  waitUntilGone(daemon);
  EXPECT_FALSE(isRunning(daemon.process));
  EXPECT_FALSE(fs::exists(daemon.place));
}

TEST_F(NotificationDaemon, OfAKilledProcessEndsWhenAnotherRootIsUsed) {
  const Daemon left = runProcessOfRoot(testRoot() / "c", Ending::Killed);
  ASSERT_GT(left.process, 0);
  const Daemon next = runProcessOfRoot(testRoot() / "d", Ending::Exit);
  EXPECT_NE(left.place, next.place);
  waitUntilGone(left);
  EXPECT_FALSE(isRunning(left.process));
  EXPECT_FALSE(fs::exists(left.place));
}

// As a daemon makes a place again that was cleared while it started. Any test that runs beside this one may clear it.
TEST_F(NotificationDaemon, PlaceWithoutALockIsClearedWhenAnotherRootIsUsed) {
  const fs::path left = "/tmp/brim-" + std::to_string(getuid()) + "-left" + std::to_string(getpid());
  std::error_code cleared;
  fs::create_directories(left / "NSMessagePort/names", cleared);
  runProcessOfRoot(testRoot() / "e", Ending::Exit);
  EXPECT_FALSE(fs::exists(left));
}

TEST_F(NotificationDaemon, LinkToTheRootTakesThePlaceOfAFolder) {
  const fs::path place = runProcessOfRoot(testRoot() / "g", Ending::Exit).place;
  ASSERT_FALSE(place.empty());
  std::error_code cleared;
  fs::create_directories(place / "root/Library", cleared);
  EXPECT_EQ(runProcessOfRoot(testRoot() / "g", Ending::Exit).root, "link");
}

TEST_F(NotificationDaemon, LinkInThePlaceOfAPlaceIsLeftAlone) {
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
