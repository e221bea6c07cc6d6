#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <regex>

#include "tests/photos/photo_phone.hpp"

namespace {

namespace fs = std::filesystem;
using test::Colour;
using test::Colours;
using test::Json;
using test::PhotoPhone;
using Targets = std::vector<std::string>;

constexpr const char* slack = "com.tinyspeck.chatlyio";

// A connection of the Slack application's own.
class SlackConnection {
 public:
  explicit SlackConnection(const fs::path& path) { EXPECT_EQ(sqlite3_open(path.c_str(), &handle), SQLITE_OK); }
  SlackConnection(const SlackConnection&) = delete;
  SlackConnection& operator=(const SlackConnection&) = delete;
  ~SlackConnection() { sqlite3_close(handle); }

  void execute(const std::string& statements) {
    char* reason = nullptr;
    EXPECT_EQ(sqlite3_exec(handle, statements.c_str(), nullptr, nullptr, &reason), SQLITE_OK) << reason;
    sqlite3_free(reason);
  }
  void addUser(const std::string& name, const std::string& identifier, const std::string& avatar = "'h'") {
    execute("INSERT INTO ZSLKDEPRECATEDCOREDATAUSER VALUES ('T1', '" + identifier + "', " + avatar + ", '" + name +
            "');");
  }

 private:
  sqlite3* handle = nullptr;
};

constexpr const char* table =
    "CREATE TABLE ZSLKDEPRECATEDCOREDATAUSER (ZTEAMID VARCHAR, ZTSID VARCHAR, ZAVATARHASH VARCHAR, ZNAME VARCHAR);";

Json direct(const std::string& body) {
  return {{"aps", {{"alert", {{"body", body}}}, {"thread-id", "D12345"}}}, {"team_id", "T1"}};
}
Json channel(const std::string& body) {
  return {{"aps", {{"alert", {{"body", body}}}, {"thread-id", "C0123"}}}, {"team_id", "T1"}};
}

std::string target(const std::string& user) { return "/T1-" + user + "-h-512"; }

struct SlackPhone : PhotoPhone {
  fs::path folder =
      test::makeContainer(test::dataContainers(root()), "S1", slack) / "Library/Application Support/Slack/T1/Database";
  fs::path database = folder / "main_db";

  SlackPhone() { fs::create_directories(folder); }

  // A database of Alice, Bob, Carol and Dan, in a way of journalling.
  void makeDatabase(const std::string& journal = "DELETE") {
    SlackConnection connection(database);
    connection.execute("PRAGMA journal_mode=" + journal + ";");
    connection.execute(table);
    for (const char* user : {"Alice", "Bob", "carol", "Dan"}) connection.addUser(user, user);
  }

  // What is asked of the server for a notification.
  Targets askedFor(const Json& userInfo) {
    const std::size_t before = asked().size();
    shownAfter(slack, userInfo);
    Targets all = asked();
    all.erase(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(before));
    return all;
  }

  // The bytes of all files beside the database and of itself.
  std::map<std::string, std::string> files() const {
    std::map<std::string, std::string> found;
    for (const auto& entry : fs::directory_iterator(folder))
      found[entry.path().filename()] = test::readFile(entry.path());
    return found;
  }
};

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

TEST(SlackPhoto, IsThatOfTheNameBeforeTheColonOfADirectMessage) {
  SlackPhone phone;
  phone.makeDatabase();
  phone.serve(target("Alice"), Colour::Red);
  EXPECT_EQ(phone.shownAfter(slack, direct("Alice: hello: there")), Colours{Colour::Red});
  EXPECT_EQ(phone.asked(), Targets{target("Alice")});
}

TEST(SlackPhoto, IsThatOfTheSecondWordInAChannel) {
  SlackPhone phone;
  phone.makeDatabase();
  phone.serve(target("Bob"), Colour::Green);
  EXPECT_EQ(phone.shownAfter(slack, channel("#general Bob: hi")), Colours{Colour::Green});
}

TEST(SlackPhoto, OtherKindsOfThreadsNameNobody) {
  SlackPhone phone;
  phone.makeDatabase();
  for (const char* thread : {"G0123", "", "d1", "c1", "1D"}) {
    Json values = direct("Alice: hello");
    values["aps"]["thread-id"] = thread;
    EXPECT_EQ(phone.askedFor(values), Targets{}) << thread;
  }
}

TEST(SlackPhoto, ChannelTextOfOneWordNamesNobody) {
  SlackPhone phone;
  phone.makeDatabase();
  for (const char* body : {"Alice:hello", "", "Bob"}) EXPECT_EQ(phone.askedFor(channel(body)), Targets{}) << body;
}

TEST(SlackPhoto, ColonsAndAtSignsAreNoPartOfTheName) {
  SlackPhone phone;
  phone.makeDatabase();
  EXPECT_EQ(phone.askedFor(direct("@carol: hi")), Targets{target("carol")});
  EXPECT_EQ(phone.askedFor(channel("#general @D@an:: hi")), Targets{target("Dan")});
}

TEST(SlackPhoto, NameIsLookedForAsLikeDoes) {
  SlackPhone phone;
  phone.makeDatabase();
  EXPECT_EQ(phone.askedFor(direct("LIC: hi")), Targets{target("Alice")}) << "a part, in any case";
  EXPECT_EQ(phone.askedFor(direct("c%l: hi")), Targets{target("carol")}) << "per cent stands for anything";
  EXPECT_EQ(phone.askedFor(direct("_an: hi")), Targets{target("Dan")}) << "an underscore for one letter";
  EXPECT_EQ(phone.askedFor(direct("Alice Smith: hi")), Targets{});
}

TEST(SlackPhoto, FirstRowOfSeveralCounts) {
  SlackPhone phone;
  phone.makeDatabase();
  SlackConnection(phone.database).addUser("Alice Two", "Second");
  EXPECT_EQ(phone.askedFor(direct("Alice: hi")), Targets{target("Alice")});
}

TEST(SlackPhoto, UserWithoutAvatarHasNoAddress) {
  SlackPhone phone;
  phone.makeDatabase();
  SlackConnection(phone.database).addUser("Eve", "Eve", "NULL");
  EXPECT_EQ(phone.askedFor(direct("Eve: hi")), Targets{});
}

TEST(SlackPhoto, HostileNamesFindNobodyAndChangeNothing) {
  SlackPhone phone;
  phone.makeDatabase();
  const auto before = phone.files();
  // A query of the sender's own, for an address of the sender's own.
  const std::string address = std::regex_replace(phone.server.address("/evil"), std::regex(":"), "' || char(58) || '");
  const std::string query = "x%' UNION SELECT '" + address + "' --";
  for (const std::string& name : {std::string("O'Brien"), std::string("''"), std::string("'"), query,
                                  std::string("x%'; DELETE FROM "
                                              "ZSLKDEPRECATEDCOREDATAUSER; --"),
                                  std::string("\\"), std::string("\\'"), std::string("\"Alice\""), std::string("🙂"),
                                  std::string("%%%%%%%%%%%%%%%%%%%%%%%%x"), std::string(1 << 20, 'a'),
                                  std::string(60'000, '%') + "x", std::string("a\nb")})
    EXPECT_EQ(phone.askedFor(direct(name + ": hi")), Targets{}) << name.substr(0, 80);
  EXPECT_EQ(phone.files(), before);
}

TEST(SlackPhoto, NamesOutsideAsciiAreFound) {
  SlackPhone phone;
  phone.makeDatabase();
  SlackConnection(phone.database).addUser("Zoë 🙂", "Zoe");
  EXPECT_EQ(phone.askedFor(direct("Zoë 🙂: hi")), Targets{target("Zoe")});
}

TEST(SlackPhoto, WorkspaceIsAFolderOfItsOwn) {
  SlackPhone phone;
  phone.makeDatabase();
  for (const Json& workspace : {Json("T2"), Json(""), Json("../T2"), Json("?mode=memory"), Json("%2e")}) {
    Json values = direct("Alice: hi");
    values["team_id"] = workspace;
    EXPECT_EQ(phone.askedFor(values), Targets{}) << workspace;
  }
  fs::rename(phone.folder.parent_path(), phone.folder.parent_path().parent_path() / "T ?#%41");
  Json values = direct("Alice: hi");
  values["team_id"] = "T ?#%41";
  EXPECT_EQ(phone.askedFor(values), Targets{target("Alice")});
}

TEST(SlackPhoto, UndecodableAvatarClearsThePicture) {
  SlackPhone phone;
  phone.makeDatabase();
  phone.server.answer(target("Alice"), {.body = "no picture"});
  EXPECT_EQ(phone.shownAfter(slack, direct("Alice: hi")), Colours{std::nullopt});
}

TEST(SlackPhoto, FailedDownloadChangesNothing) {
  SlackPhone phone;
  phone.makeDatabase();
  phone.server.answer(target("Alice"), {.delivery = test::Delivery::Nothing});
  EXPECT_EQ(phone.shownAfter(slack, direct("Alice: hi")), Colours{});
  EXPECT_EQ(phone.asked(), Targets{target("Alice")});
}

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
