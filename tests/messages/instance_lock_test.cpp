// At most one Messages app holds a root.
#include "simulator/messages/instance_lock.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/temporary_folder.hpp"

namespace {

namespace fs = std::filesystem;
using messages::lockInstance;

class InstanceLock : public testing::Test {
 protected:
  std::string text() const {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  test::TemporaryFolder temporary;
  const fs::path folder = temporary.path() / "made by the lock";
  const fs::path path = folder / "messages.lock";
};

TEST_F(InstanceLock, IsHeldByOneAtATime) {
  {
    const foundation::Descriptor first = lockInstance(folder);
    ASSERT_TRUE(first.isOpen());
    EXPECT_FALSE(lockInstance(folder).isOpen());
  }
  EXPECT_TRUE(lockInstance(folder).isOpen());
}

TEST_F(InstanceLock, TellsItsHolderAloneWhateverStoodThere) {
  fs::create_directories(folder);
  std::ofstream(path) << "12345678901234567890\n";
  const foundation::Descriptor lock = lockInstance(folder);
  EXPECT_EQ(text(), std::to_string(getpid()) + "\n");
}

TEST_F(InstanceLock, IsLeftAsItIsByWhoeverDoesNotGetIt) {
  const foundation::Descriptor lock = lockInstance(folder);
  std::ofstream(path) << "the holder's\n";
  EXPECT_FALSE(lockInstance(folder).isOpen());
  EXPECT_EQ(text(), "the holder's\n");
}

// The daemon of notifications, which an app may start, outlives it.
TEST_F(InstanceLock, IsNotHeldByAProcessThatItsHolderHasStarted) {
  FILE* child = nullptr;
  {
    const foundation::Descriptor lock = lockInstance(folder);
    child = popen("cat > /dev/null", "w");
  }
  EXPECT_TRUE(lockInstance(folder).isOpen());
  pclose(child);
}

TEST_F(InstanceLock, WhereNoFileCanBeMadeIsAnErrorThatNamesIt) {
  std::ofstream(temporary.path() / "file") << "in the way";
  EXPECT_THROW(lockInstance(temporary.path() / "file" / "folder"), fs::filesystem_error);
}

}  // namespace
