#include <gtest/gtest.h>

#include <regex>

#include "tests/photos/slack_phone.hpp"

namespace {

namespace fs = std::filesystem;
using test::avatarTarget;
using test::channelMessage;
using test::Color;
using test::Colors;
using test::directMessage;
using test::Json;
using test::slack;
using test::SlackConnection;
using test::SlackPhone;
using test::Targets;

TEST(SlackPhoto, UsesTheNameBeforeTheColonOfADirectMessage) {
  SlackPhone phone;
  phone.makeDatabase();
  phone.serve(avatarTarget("Alice"), Color::Red);
  EXPECT_EQ(phone.picturesAfter(slack, directMessage("Alice: hello: there")), Colors{Color::Red});
  EXPECT_EQ(phone.requestedTargets(), Targets{avatarTarget("Alice")});
}

TEST(SlackPhoto, UsesTheSecondWordOfAChannelMessage) {
  SlackPhone phone;
  phone.makeDatabase();
  phone.serve(avatarTarget("Bob"), Color::Green);
  EXPECT_EQ(phone.picturesAfter(slack, channelMessage("#general Bob: hi")), Colors{Color::Green});
}

TEST(SlackPhoto, OtherKindsOfThreadsMatchNoUser) {
  SlackPhone phone;
  phone.makeDatabase();
  for (const char* thread : {"G0123", "", "d1", "c1", "1D"}) {
    Json values = directMessage("Alice: hello");
    values["aps"]["thread-id"] = thread;
    EXPECT_EQ(phone.requestsFor(values), Targets{}) << thread;
  }
}

TEST(SlackPhoto, ChannelMessageOfOneWordMatchesNoUser) {
  SlackPhone phone;
  phone.makeDatabase();
  for (const char* body : {"Alice:hello", "", "Bob"})
    EXPECT_EQ(phone.requestsFor(channelMessage(body)), Targets{}) << body;
}

TEST(SlackPhoto, ColonsAndAtSignsAreRemovedFromTheName) {
  SlackPhone phone;
  phone.makeDatabase();
  EXPECT_EQ(phone.requestsFor(directMessage("@carol: hi")), Targets{avatarTarget("carol")});
  EXPECT_EQ(phone.requestsFor(channelMessage("#general @D@an:: hi")), Targets{avatarTarget("Dan")});
}

TEST(SlackPhoto, NameIsMatchedByTheLikeOperator) {
  SlackPhone phone;
  phone.makeDatabase();
  EXPECT_EQ(phone.requestsFor(directMessage("LIC: hi")), Targets{avatarTarget("Alice")})
      << "a substring matches, regardless of case";
  EXPECT_EQ(phone.requestsFor(directMessage("c%l: hi")), Targets{avatarTarget("carol")})
      << "a percent sign matches any characters";
  EXPECT_EQ(phone.requestsFor(directMessage("_an: hi")), Targets{avatarTarget("Dan")})
      << "an underscore matches one character";
  EXPECT_EQ(phone.requestsFor(directMessage("Alice Smith: hi")), Targets{});
}

TEST(SlackPhoto, FirstOfSeveralRowsIsUsed) {
  SlackPhone phone;
  phone.makeDatabase();
  SlackConnection(phone.database).addUser("Alice Two", "Second");
  EXPECT_EQ(phone.requestsFor(directMessage("Alice: hi")), Targets{avatarTarget("Alice")});
}

TEST(SlackPhoto, UserWithoutAvatarCausesNoRequest) {
  SlackPhone phone;
  phone.makeDatabase();
  SlackConnection(phone.database).addUser("Eve", "Eve", "NULL");
  EXPECT_EQ(phone.requestsFor(directMessage("Eve: hi")), Targets{});
}

TEST(SlackPhoto, HostileNamesMatchNoUserAndModifyNoFile) {
  SlackPhone phone;
  phone.makeDatabase();
  SlackConnection(phone.database).addUser("O''Brien", "OBrien");
  ASSERT_EQ(phone.requestsFor(directMessage("Brien: hi")), Targets{avatarTarget("OBrien")});
  const auto before = phone.files();
  // A name that contains a query. If the query were executed, it would return an address that the sender has chosen.
  const std::string address = std::regex_replace(phone.server.address("/evil"), std::regex(":"), "' || char(58) || '");
  const std::string query = "x%' UNION SELECT '" + address + "' --";
  for (const std::string& name : {std::string("O'Brien"), std::string("''"), std::string("'"), query,
                                  std::string("x%'; DELETE FROM "
                                              "ZSLKDEPRECATEDCOREDATAUSER; --"),
                                  std::string("\\"), std::string("\\'"), std::string("\"Alice\""), std::string("🙂"),
                                  std::string("%%%%%%%%%%%%%%%%%%%%%%%%x"), std::string(1 << 20, 'a'),
                                  std::string(60'000, '%') + "x", std::string("a\nb")})
    EXPECT_EQ(phone.requestsFor(directMessage(name + ": hi")), Targets{}) << name.substr(0, 80);
  EXPECT_EQ(phone.files(), before);
}

TEST(SlackPhoto, NamesOutsideAsciiAreFound) {
  SlackPhone phone;
  phone.makeDatabase();
  SlackConnection(phone.database).addUser("Zoë 🙂", "Zoe");
  EXPECT_EQ(phone.requestsFor(directMessage("Zoë 🙂: hi")), Targets{avatarTarget("Zoe")});
}

TEST(SlackPhoto, WorkspaceSelectsTheFolderOfTheDatabase) {
  SlackPhone phone;
  phone.makeDatabase();
  for (const Json& workspace : {Json("T2"), Json(""), Json("../T2"), Json("?mode=memory"), Json("%2e")}) {
    Json values = directMessage("Alice: hi");
    values["team_id"] = workspace;
    EXPECT_EQ(phone.requestsFor(values), Targets{}) << workspace;
  }
  fs::rename(phone.folder.parent_path(), phone.folder.parent_path().parent_path() / "T ?#%41");
  Json values = directMessage("Alice: hi");
  values["team_id"] = "T ?#%41";
  EXPECT_EQ(phone.requestsFor(values), Targets{avatarTarget("Alice")});
}

TEST(SlackPhoto, UndecodableAvatarClearsThePicture) {
  SlackPhone phone;
  phone.makeDatabase();
  phone.server.answer(avatarTarget("Alice"), {.body = "no picture"});
  EXPECT_EQ(phone.picturesAfter(slack, directMessage("Alice: hi")), Colors{std::nullopt});
}

TEST(SlackPhoto, FailedDownloadChangesNothing) {
  SlackPhone phone;
  phone.makeDatabase();
  phone.server.answer(avatarTarget("Alice"), {.delivery = test::Delivery::Nothing});
  EXPECT_EQ(phone.picturesAfter(slack, directMessage("Alice: hi")), Colors{});
  EXPECT_EQ(phone.requestedTargets(), Targets{avatarTarget("Alice")});
}

}  // namespace
