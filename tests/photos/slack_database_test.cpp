// Tests of reading the Slack database in each state in which the application can leave it, while it runs or after it
// has ended.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/photos/slack_phone.hpp"

namespace {

namespace fs = std::filesystem;
using test::avatarTarget;
using test::directMessage;
using test::SlackConnection;
using test::SlackPhone;
using test::Targets;

// A second process that simulates the Slack application. It calls the given function with a function `waitForEnd` as
// the argument. `waitForEnd` returns when this object is destroyed. The constructor returns when the second process has
// called `waitForEnd`.
class SlackProcess {
 public:
  template <class Function>
  explicit SlackProcess(const Function& function) {
    int ready[2];
    int end[2];
    EXPECT_EQ(pipe(ready), 0);
    EXPECT_EQ(pipe(end), 0);
    process_ = fork();
    if (process_ == 0) {
      close(end[1]);
      function([&] {
        char byte = 0;
        if (write(ready[1], &byte, 1) == 1) (void)!read(end[0], &byte, 1);
      });
      _exit(0);
    }
    close(ready[1]);
    close(end[0]);
    char byte = 0;
    EXPECT_EQ(read(ready[0], &byte, 1), 1);
    close(ready[0]);
    end_ = end[1];
  }
  ~SlackProcess() {
    close(end_);
    waitpid(process_, nullptr, 0);
  }
  SlackProcess(const SlackProcess&) = delete;
  SlackProcess& operator=(const SlackProcess&) = delete;

 private:
  pid_t process_;
  int end_;
};

TEST(SlackPhoto, MissingOrDamagedDatabaseMatchesNoUserAndIsNotModified) {
  SlackPhone phone;
  EXPECT_EQ(phone.requestsFor(directMessage("Alice: hi")), Targets{}) << "without a file";
  EXPECT_FALSE(fs::exists(phone.database));
  fs::create_directories(phone.database);
  EXPECT_EQ(phone.requestsFor(directMessage("Alice: hi")), Targets{}) << "with a folder instead of the file";
  fs::remove(phone.database);
  ASSERT_EQ(mkfifo(phone.database.c_str(), 0600), 0);
  EXPECT_EQ(phone.requestsFor(directMessage("Alice: hi")), Targets{}) << "with a pipe instead of the file";
  fs::remove(phone.database);
  phone.makeDatabase();
  const std::string whole = test::readFile(phone.database);
  std::string damaged = whole;
  for (std::size_t index = 100; index < damaged.size(); index += 3) damaged[index] = static_cast<char>(index);
  for (const std::string& bytes : {std::string(), std::string("no database"), std::string(4096, '\0'),
                                   whole.substr(0, 50), whole.substr(0, 5000), damaged}) {
    test::writeFile(phone.database, bytes);
    const auto before = phone.files();
    EXPECT_EQ(phone.requestsFor(directMessage("Alice: hi")), Targets{}) << bytes.size();
    EXPECT_EQ(phone.files(), before);
  }
  fs::remove(phone.database);
  SlackConnection(phone.database).execute("CREATE TABLE OTHER (A);");
  EXPECT_EQ(phone.requestsFor(directMessage("Alice: hi")), Targets{}) << "without the table of users";
}

TEST(SlackPhoto, DatabaseCanBeASymbolicLink) {
  SlackPhone phone;
  phone.makeDatabase();
  fs::rename(phone.database, phone.root() / "moved");
  fs::create_symlink(phone.root() / "moved", phone.database);
  EXPECT_EQ(phone.requestsFor(directMessage("Alice: hi")), Targets{avatarTarget("Alice")});
}

class SlackJournalMode : public testing::TestWithParam<const char*> {};

TEST_P(SlackJournalMode, ReadingDoesNotCreateOrModifyFiles) {
  SlackPhone phone;
  phone.makeDatabase(GetParam());
  const auto before = phone.files();
  ASSERT_EQ(before.size(), 1U) << "a closed connection must leave only the database file";
  EXPECT_EQ(phone.requestsFor(directMessage("Bob: hi")), Targets{avatarTarget("Bob")});
  EXPECT_EQ(phone.requestsFor(directMessage("Nobody: hi")), Targets{});
  EXPECT_EQ(phone.files(), before);
}

TEST_P(SlackJournalMode, ReadingClosesTheDatabase) {
  SlackPhone phone;
  phone.makeDatabase(GetParam());
  EXPECT_EQ(phone.requestsFor(directMessage("Alice: hi")), Targets{avatarTarget("Alice")});
  for (const auto& descriptor : fs::directory_iterator("/proc/self/fd")) {
    std::error_code closed;
    const std::string file = fs::read_symlink(descriptor.path(), closed).string();
    EXPECT_FALSE(file.starts_with(phone.database.string())) << file;
  }
}

TEST_P(SlackJournalMode, ReadingAnOpenDatabaseDoesNotCreateOrModifyFiles) {
  SlackPhone phone;
  phone.makeDatabase(GetParam());
  const SlackProcess application([&](const auto& waitForEnd) {
    SlackConnection connection(phone.database);
    connection.addUser("Newcomer", "New");
    waitForEnd();
  });
  const auto before = phone.files();
  EXPECT_EQ(phone.requestsFor(directMessage("Newcomer: hi")), Targets{avatarTarget("New")});
  EXPECT_EQ(phone.files(), before);
}

TEST_P(SlackJournalMode, UncommittedTransactionIsNotVisible) {
  SlackPhone phone;
  phone.makeDatabase(GetParam());
  const SlackProcess application([&](const auto& waitForEnd) {
    SlackConnection connection(phone.database);
    connection.execute("BEGIN IMMEDIATE;");
    connection.addUser("Uncommitted", "Uncommitted");
    waitForEnd();
  });
  const auto before = phone.files();
  EXPECT_EQ(phone.requestsFor(directMessage("Uncommitted: hi")), Targets{});
  EXPECT_EQ(phone.requestsFor(directMessage("Alice: hi")), Targets{avatarTarget("Alice")});
  EXPECT_EQ(phone.files(), before);
}

TEST_P(SlackJournalMode, FilesOfAKilledApplicationAreNotModified) {
  SlackPhone phone;
  phone.makeDatabase(GetParam());
  {
    const SlackProcess application([&](const auto& waitForEnd) {
      auto* const connection = new SlackConnection(phone.database);
      connection->addUser("Newcomer", "New");
      connection->execute("BEGIN IMMEDIATE;");
      connection->addUser("Uncommitted", "Uncommitted");
      waitForEnd();
    });
  }
  const auto before = phone.files();
  EXPECT_EQ(phone.requestsFor(directMessage("Uncommitted: hi")), Targets{});
  EXPECT_EQ(phone.files(), before);
}

TEST(SlackPhoto, WriteAheadLogWithoutItsIndexIsIgnored) {
  SlackPhone phone;
  phone.makeDatabase("WAL");
  {
    const SlackProcess application([&](const auto& waitForEnd) {
      auto* const connection = new SlackConnection(phone.database);
      connection->addUser("Newcomer", "New");
      waitForEnd();
    });
  }
  ASSERT_TRUE(fs::remove(phone.database.string() + "-shm"));
  const auto before = phone.files();
  ASSERT_EQ(before.size(), 2U);
  EXPECT_EQ(phone.requestsFor(directMessage("Alice: hi")), Targets{avatarTarget("Alice")});
  EXPECT_EQ(phone.files(), before);
}

INSTANTIATE_TEST_SUITE_P(Modes, SlackJournalMode, testing::Values("DELETE", "WAL"));

TEST(SlackPhoto, LockedDatabaseIsSkippedWithoutWaiting) {
  SlackPhone phone;
  phone.makeDatabase();
  const SlackProcess application([&](const auto& waitForEnd) {
    SlackConnection connection(phone.database);
    connection.execute("BEGIN EXCLUSIVE;");
    waitForEnd();
  });
  const auto before = phone.files();
  EXPECT_EQ(phone.requestsFor(directMessage("Alice: hi")), Targets{});
  EXPECT_EQ(phone.files(), before);
}

}  // namespace
