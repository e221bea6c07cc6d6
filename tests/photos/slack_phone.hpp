// A phone with Slack on it, and the database that the application keeps.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/photos/photo_phone.hpp"

namespace test {

using Targets = std::vector<std::string>;

inline constexpr const char* slack = "com.tinyspeck.chatlyio";

// A connection of the Slack application's own.
class SlackConnection {
 public:
  explicit SlackConnection(const std::filesystem::path& path) {
    EXPECT_EQ(sqlite3_open(path.c_str(), &handle), SQLITE_OK);
  }
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

inline constexpr const char* usersTable =
    "CREATE TABLE ZSLKDEPRECATEDCOREDATAUSER (ZTEAMID VARCHAR, ZTSID VARCHAR, ZAVATARHASH VARCHAR, ZNAME VARCHAR);";

inline Json direct(const std::string& body) {
  return {{"aps", {{"alert", {{"body", body}}}, {"thread-id", "D12345"}}}, {"team_id", "T1"}};
}
inline Json channel(const std::string& body) {
  return {{"aps", {{"alert", {{"body", body}}}, {"thread-id", "C0123"}}}, {"team_id", "T1"}};
}

inline std::string target(const std::string& user) { return "/T1-" + user + "-h-512"; }

struct SlackPhone : PhotoPhone {
  std::filesystem::path folder =
      makeContainer(dataContainers(root()), "S1", slack) / "Library/Application Support/Slack/T1/Database";
  std::filesystem::path database = folder / "main_db";

  SlackPhone() { std::filesystem::create_directories(folder); }

  // A database of Alice, Bob, Carol and Dan, in a way of journalling.
  void makeDatabase(const std::string& journal = "DELETE") {
    SlackConnection connection(database);
    connection.execute("PRAGMA journal_mode=" + journal + ";");
    connection.execute(usersTable);
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
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      found[entry.path().filename()] = readFile(entry.path());
    return found;
  }
};

}  // namespace test
