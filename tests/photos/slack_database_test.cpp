// The database in every state that the application may leave it in or hold it in.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/photos/slack_phone.hpp"

namespace {

namespace fs = std::filesystem;
using test::direct;
using test::SlackConnection;
using test::SlackPhone;
using test::target;
using test::Targets;

// Runs work of the Slack application in a process of its own, which goes on until it is told to end.
class SlackProcess {
 public:
  template <class Work>
  explicit SlackProcess(const Work& work) {
    int ready[2];
    int end[2];
    EXPECT_EQ(pipe(ready), 0);
    EXPECT_EQ(pipe(end), 0);
    process = fork();
    if (process == 0) {
      close(end[1]);
      work([&] {
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
    ending = end[1];
  }
  ~SlackProcess() {
    close(ending);
    waitpid(process, nullptr, 0);
  }
  SlackProcess(const SlackProcess&) = delete;
  SlackProcess& operator=(const SlackProcess&) = delete;

 private:
  pid_t process;
  int ending;
};

TEST(SlackPhoto, MissingOrDamagedDatabaseFindsNobodyAndStaysAsItIs) {
  SlackPhone phone;
  EXPECT_EQ(phone.askedFor(direct("Alice: hi")), Targets{}) << "missing";
  EXPECT_FALSE(fs::exists(phone.database));
  fs::create_directories(phone.database);
  EXPECT_EQ(phone.askedFor(direct("Alice: hi")), Targets{}) << "a folder";
  fs::remove(phone.database);
  ASSERT_EQ(mkfifo(phone.database.c_str(), 0600), 0);
  EXPECT_EQ(phone.askedFor(direct("Alice: hi")), Targets{}) << "a pipe";
  fs::remove(phone.database);
  phone.makeDatabase();
  const std::string whole = test::readFile(phone.database);
  std::string damaged = whole;
  for (std::size_t index = 100; index < damaged.size(); index += 3) damaged[index] = static_cast<char>(index);
  for (const std::string& bytes : {std::string(), std::string("no database"), std::string(4096, '\0'),
                                   whole.substr(0, 50), whole.substr(0, 5000), damaged}) {
    test::writeFile(phone.database, bytes);
    const auto before = phone.files();
    EXPECT_EQ(phone.askedFor(direct("Alice: hi")), Targets{}) << bytes.size();
    EXPECT_EQ(phone.files(), before);
  }
  fs::remove(phone.database);
  SlackConnection(phone.database).execute("CREATE TABLE OTHER (A);");
  EXPECT_EQ(phone.askedFor(direct("Alice: hi")), Targets{}) << "without the table";
}

class SlackJournal : public testing::TestWithParam<const char*> {};

TEST_P(SlackJournal, DatabaseIsReadWithoutMakingOrChangingAFile) {
  SlackPhone phone;
  phone.makeDatabase(GetParam());
  const auto before = phone.files();
  ASSERT_EQ(before.size(), 1U) << "the application has ended";
  EXPECT_EQ(phone.askedFor(direct("Bob: hi")), Targets{target("Bob")});
  EXPECT_EQ(phone.askedFor(direct("Nobody: hi")), Targets{});
  EXPECT_EQ(phone.files(), before);
}

TEST_P(SlackJournal, DatabaseThatTheApplicationHasOpenIsReadWithoutMakingOrChangingAFile) {
  SlackPhone phone;
  phone.makeDatabase(GetParam());
  const SlackProcess application([&](const auto& waitForTheEnd) {
    SlackConnection connection(phone.database);
    connection.addUser("Newcomer", "New");
    waitForTheEnd();
  });
  const auto before = phone.files();
  EXPECT_EQ(phone.askedFor(direct("Newcomer: hi")), Targets{target("New")});
  EXPECT_EQ(phone.files(), before);
}

TEST_P(SlackJournal, DatabaseInTheMiddleOfAChangeIsReadAsItWasOrNotAtAll) {
  SlackPhone phone;
  phone.makeDatabase(GetParam());
  const SlackProcess application([&](const auto& waitForTheEnd) {
    SlackConnection connection(phone.database);
    connection.execute("BEGIN IMMEDIATE;");
    connection.addUser("Unsaid", "Unsaid");
    waitForTheEnd();
  });
  const auto before = phone.files();
  EXPECT_EQ(phone.askedFor(direct("Unsaid: hi")), Targets{});
  EXPECT_EQ(phone.askedFor(direct("Alice: hi")), Targets{target("Alice")});
  EXPECT_EQ(phone.files(), before);
}

TEST_P(SlackJournal, ApplicationThatWasKilledLeavesItsFilesAsTheyAre) {
  SlackPhone phone;
  phone.makeDatabase(GetParam());
  {
    const SlackProcess application([&](const auto& waitForTheEnd) {
      auto* const connection = new SlackConnection(phone.database);
      connection->addUser("Newcomer", "New");
      connection->execute("BEGIN IMMEDIATE;");
      connection->addUser("Unsaid", "Unsaid");
      waitForTheEnd();
    });
  }
  const auto before = phone.files();
  EXPECT_EQ(phone.askedFor(direct("Unsaid: hi")), Targets{});
  EXPECT_EQ(phone.files(), before);
}

TEST(SlackPhoto, LogWithoutItsIndexIsLeftAsideAndTheDatabaseReadAsItWasBefore) {
  SlackPhone phone;
  phone.makeDatabase("WAL");
  {
    const SlackProcess application([&](const auto& waitForTheEnd) {
      auto* const connection = new SlackConnection(phone.database);
      connection->addUser("Newcomer", "New");
      waitForTheEnd();
    });
  }
  ASSERT_TRUE(fs::remove(phone.database.string() + "-shm"));
  const auto before = phone.files();
  ASSERT_EQ(before.size(), 2U);
  EXPECT_EQ(phone.askedFor(direct("Alice: hi")), Targets{target("Alice")});
  EXPECT_EQ(phone.files(), before);
}

INSTANTIATE_TEST_SUITE_P(Ways, SlackJournal, testing::Values("DELETE", "WAL"));

TEST(SlackPhoto, LockedDatabaseIsNotWaitedFor) {
  SlackPhone phone;
  phone.makeDatabase();
  const SlackProcess application([&](const auto& waitForTheEnd) {
    SlackConnection connection(phone.database);
    connection.execute("BEGIN EXCLUSIVE;");
    waitForTheEnd();
  });
  const auto before = phone.files();
  EXPECT_EQ(phone.askedFor(direct("Alice: hi")), Targets{});
  EXPECT_EQ(phone.files(), before);
}

}  // namespace
