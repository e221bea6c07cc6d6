#include <gtest/gtest.h>

#include <regex>

#include "tests/photos/slack_phone.hpp"

namespace {

namespace fs = std::filesystem;
using test::channel;
using test::Color;
using test::Colors;
using test::direct;
using test::Json;
using test::slack;
using test::SlackConnection;
using test::SlackPhone;
using test::target;
using test::Targets;

TEST(SlackPhoto, IsThatOfTheNameBeforeTheColonOfADirectMessage) {
  SlackPhone phone;
  phone.makeDatabase();
  phone.serve(target("Alice"), Color::Red);
  EXPECT_EQ(phone.shownAfter(slack, direct("Alice: hello: there")), Colors{Color::Red});
  EXPECT_EQ(phone.asked(), Targets{target("Alice")});
}

TEST(SlackPhoto, IsThatOfTheSecondWordInAChannel) {
  SlackPhone phone;
  phone.makeDatabase();
  phone.serve(target("Bob"), Color::Green);
  EXPECT_EQ(phone.shownAfter(slack, channel("#general Bob: hi")), Colors{Color::Green});
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
  EXPECT_EQ(phone.shownAfter(slack, direct("Alice: hi")), Colors{std::nullopt});
}

TEST(SlackPhoto, FailedDownloadChangesNothing) {
  SlackPhone phone;
  phone.makeDatabase();
  phone.server.answer(target("Alice"), {.delivery = test::Delivery::Nothing});
  EXPECT_EQ(phone.shownAfter(slack, direct("Alice: hi")), Colors{});
  EXPECT_EQ(phone.asked(), Targets{target("Alice")});
}

}  // namespace
