// A simulated phone with the database of the Slack application.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/photos/photo_phone.hpp"

namespace test {

inline constexpr const char* slack = "com.tinyspeck.chatlyio";

// A database connection of the Slack application.
class SlackConnection {
 public:
  explicit SlackConnection(const std::filesystem::path& path) {
    EXPECT_EQ(sqlite3_open(path.c_str(), &handle_), SQLITE_OK);
  }
  SlackConnection(const SlackConnection&) = delete;
  SlackConnection& operator=(const SlackConnection&) = delete;
  ~SlackConnection() { sqlite3_close(handle_); }

  void execute(const std::string& statements) {
    char* error = nullptr;
    EXPECT_EQ(sqlite3_exec(handle_, statements.c_str(), nullptr, nullptr, &error), SQLITE_OK) << error;
    sqlite3_free(error);
  }
  void addUser(const std::string& name, const std::string& identifier, const std::string& avatar = "'h'") {
    execute("INSERT INTO ZSLKDEPRECATEDCOREDATAUSER VALUES ('T1', '" + identifier + "', " + avatar + ", '" + name +
            "');");
  }

 private:
  sqlite3* handle_ = nullptr;
};

inline constexpr const char* usersTable =
    "CREATE TABLE ZSLKDEPRECATEDCOREDATAUSER (ZTEAMID VARCHAR, ZTSID VARCHAR, ZAVATARHASH VARCHAR, ZNAME VARCHAR);";

// The user info of a direct message, and of a message in a channel.
inline Json directMessage(const std::string& body) {
  return {{"aps", {{"alert", {{"body", body}}}, {"thread-id", "D12345"}}}, {"team_id", "T1"}};
}
inline Json channelMessage(const std::string& body) {
  return {{"aps", {{"alert", {{"body", body}}}, {"thread-id", "C0123"}}}, {"team_id", "T1"}};
}

// The target of the request for a user's avatar.
inline std::string avatarTarget(const std::string& user) { return "/T1-" + user + "-h-512"; }

struct SlackPhone : PhotoPhone {
  std::filesystem::path folder =
      makeContainer(dataContainers(root()), "S1", slack) / "Library/Application Support/Slack/T1/Database";
  std::filesystem::path database = folder / "main_db";

  SlackPhone() { std::filesystem::create_directories(folder); }

  // Creates a database with the users Alice, Bob, carol and Dan. `journalMode` is a journal mode of SQLite.
  void makeDatabase(const std::string& journalMode = "DELETE") {
    SlackConnection connection(database);
    connection.execute("PRAGMA journal_mode=" + journalMode + ";");
    connection.execute(usersTable);
    for (const char* user : {"Alice", "Bob", "carol", "Dan"}) connection.addUser(user, user);
  }

  // Presents a notification and returns the targets that the phone requests for it.
  Targets requestsFor(const Json& userInfo) {
    const std::size_t before = requestedTargets().size();
    picturesAfter(slack, userInfo);
    Targets all = requestedTargets();
    all.erase(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(before));
    return all;
  }

  // The contents of all files in the folder of the database. The keys are the file names.
  std::map<std::string, std::string> files() const {
    std::map<std::string, std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      found[entry.path().filename()] = readFile(entry.path());
    return found;
  }
};

}  // namespace test
