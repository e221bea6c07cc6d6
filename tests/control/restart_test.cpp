// Tests of restarts of a live phone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "simulator/foundation/local_socket.hpp"
#include "simulator/process/control_socket.hpp"
#include "tests/control/live_phone.hpp"

namespace {

using test::Json;
using test::LivePhone;
using test::Outcome;
using testing::HasSubstr;

Json sizeOf(const LivePhone& phone) {
  const Json frame = phone.execute({{"do", "tree"}})["windows"][0]["frame"];
  return {frame[2], frame[3]};
}

TEST(Restart, ChangesTheDevice) {
  const LivePhone phone;
  ASSERT_EQ(sizeOf(phone), Json({375.0, 812.0}));
  const Outcome outcome = phone.control("restart --device iphone-se");
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(outcome.output + outcome.errors, "");
  EXPECT_EQ(sizeOf(phone), Json({320.0, 568.0}));
}

TEST(Restart, ChangesTheLanguageAndTheSystemVersion) {
  const LivePhone phone;
  phone.execute({{"do", "present"}, {"section", "com.apple.MobileSMS"}, {"title", "Anna"}});
  const std::string before = phone.execute({{"do", "tree"}, {"controller", 1}}).dump();
  EXPECT_THAT(before, HasSubstr("\"NCNotificationViewControllerView\""));
  EXPECT_EQ(phone.control("restart --system 11.4 --locale ar_EG").status, 0);
  phone.execute({{"do", "present"}, {"section", "com.apple.MobileSMS"}, {"title", "Anna"}});
  const std::string after = phone.execute({{"do", "tree"}, {"controller", 1}}).dump();
  EXPECT_THAT(after, HasSubstr("\"_NCNotificationViewControllerView\""));
  // The clock shows Arabic digits.
  EXPECT_THAT(phone.execute({{"do", "tree"}}).dump(), HasSubstr("\xd9"));
}

TEST(Restart, KeepsTheNotificationsThePreferencesAndTheAppearance) {
  LivePhone phone;
  phone.execute({{"do", "present"},
                 {"section", "com.apple.mobilemail"},
                 {"identifier", "first"},
                 {"thread", "list"},
                 {"title", "Anna"},
                 {"subtitle", "Team"},
                 {"message", "Lunch?"}});
  phone.execute({{"do", "present"}, {"section", "a.b"}, {"title", "Ben"}});
  phone.execute({{"do", "set"}, {"key", "timeToDismiss"}, {"value", 3}});
  phone.execute({{"do", "appearance"}, {"style", "dark"}});
  const Json stored = phone.execute({{"do", "notifications"}});
  const auto process = phone.process().process();
  EXPECT_EQ(phone.control("restart").status, 0);
  EXPECT_EQ(phone.execute({{"do", "notifications"}}), stored);
  EXPECT_EQ(phone.execute({{"do", "settings"}})["settings"]["timeToDismiss"], 3);
  EXPECT_EQ(phone.process().process(), process);
  EXPECT_FALSE(phone.process().hasEnded());
  EXPECT_EQ(phone.control("tell '{\"do\":\"screenshot\",\"path\":\"a.png\",\"scale\":1}'").status, 0);
  EXPECT_EQ(
      phone.control("appearance dark && " PHONE_CONTROL " --root root screenshot --scale 1 b.png && cmp a.png b.png")
          .status,
      0);
}

TEST(Restart, PreventsOtherPhonesFromUsingItsRoot) {
  const LivePhone phone;
  phone.control("restart");
  const Outcome other = test::runIn(phone.folder(), SPRINGBOARD " --root root --live");
  EXPECT_EQ(other.status, 2);
  EXPECT_THAT(other.errors, HasSubstr("a phone is already running on "));
}

TEST(Restart, AnswersItsCallerAndEndsItsConnection) {
  const LivePhone phone;
  control::PhoneConnection connection = phone.connect();
  EXPECT_EQ(connection.execute({{"do", "restart"}}), Json({{"ok", true}}));
  EXPECT_THROW(connection.execute({{"do", "log"}}), control::ConnectionError);
  EXPECT_EQ(phone.execute({{"do", "log"}})["ok"], true);
}

TEST(Restart, EndsCommandsThatWait) {
  const LivePhone phone;
  const auto waiting = foundation::connectIn(phone.root() / "var/run", process::controlSocket);
  ASSERT_TRUE(foundation::sendAll(waiting, "{\"do\":\"wait\",\"seconds\":600}\n"));
  phone.execute({{"do", "log"}});
  EXPECT_EQ(phone.control("restart").status, 0);
}

TEST(Restart, RefusesUnknownValuesAndContinues) {
  const LivePhone phone;
  const struct {
    const char* arguments;
    const char* error;
  } mistakes[] = {
      {"--device iphone-3", "expected one of iphone-se, iphone-8, iphone-x, iphone-11-pro-max"},
      {"--system 9.0", "expected a system version of 11.0 or later"},
      {"--locale german", "expected a language and a region"},
      {"--locale qq_DE", ", de, "},
  };
  for (const auto& mistake : mistakes) {
    const Outcome outcome = phone.control(std::string("restart ") + mistake.arguments);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, HasSubstr(mistake.error));
  }
  EXPECT_EQ(sizeOf(phone), Json({375.0, 812.0}));
}

TEST(Restart, OptionsBelongToItsSubcommand) {
  const LivePhone phone;
  const Outcome outcome = phone.control("appearance --device iphone-se dark");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.errors, HasSubstr("appearance has no option --device"));
}

}  // namespace
