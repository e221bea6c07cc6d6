// Tests of the program phone_control with a live phone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "tests/control/live_phone.hpp"

namespace {

using test::Json;
using test::LivePhone;
using test::Outcome;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* lunch = R"({"aps":{"alert":{"title":"Anna","subtitle":"Team","body":"Lunch?"}}})";

TEST(Tell, PrintsTheAnswersOfAScript) {
  const std::string commands =
      "{\"do\":\"settings\"}\n{\"do\":\"hooks\"}\n\n# comment\n{\"do\":\"nothing\"}\nnonsense\n{\"do\":\"wait\"}\n";
  const LivePhone phone;
  const Outcome told = phone.control("tell -", commands);
  const Outcome script = test::runIn(phone.folder(), SPRINGBOARD " --root other --script -", commands);
  EXPECT_EQ(told.output, script.output);
  EXPECT_EQ(std::ranges::count(told.output, '\n'), 5);
  EXPECT_EQ(told.status, 1);
}

TEST(Tell, ExecutesTheCommandsOfItsArguments) {
  const LivePhone phone;
  const Outcome outcome = phone.control(R"(tell '{"do":"log"}' '{"do":
    "wait","seconds":0}')");
  EXPECT_EQ(outcome.output, "{\"ok\":true,\"events\":[]}\n{\"ok\":true}\n");
  EXPECT_EQ(outcome.status, 0);
}

TEST(Tell, InterpretsPathsRelativeToItsOwnFolder) {
  const LivePhone phone;
  EXPECT_EQ(phone.control(R"(tell '{"do":"screenshot","path":"picture.png","scale":1}')").status, 0);
  EXPECT_TRUE(std::filesystem::exists(phone.folder() / "picture.png"));
}

TEST(Push, PresentsTheAlertWithTheRemainingMembers) {
  const LivePhone phone;
  const Outcome outcome = phone.control("push com.apple.MobileSMS -", lunch);
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_THAT(outcome.output + outcome.errors, IsEmpty());
  const Json listed = phone.execute({{"do", "notifications"}})["notifications"];
  ASSERT_EQ(listed.size(), 1U);
  EXPECT_EQ(listed[0]["section"], "com.apple.MobileSMS");
  EXPECT_EQ(listed[0]["title"], "Anna");
  EXPECT_EQ(listed[0]["subtitle"], "Team");
  EXPECT_EQ(listed[0]["message"], "Lunch?");
}

TEST(Push, AcceptsAStringAlertAndAThread) {
  const LivePhone phone;
  EXPECT_EQ(phone
                .control("push com.apple.mobilemail -",
                         R"({"aps":{"alert":"Lunch?","thread-id":"food","category":"c","sound":"default"}})")
                .status,
            0);
  const Json listed = phone.execute({{"do", "notifications"}})["notifications"];
  ASSERT_EQ(listed.size(), 1U);
  EXPECT_EQ(listed[0]["message"], "Lunch?");
  EXPECT_EQ(listed[0]["thread"], "food");
}

TEST(Push, TakesTheApplicationFromTheFile) {
  const LivePhone phone;
  std::ofstream(phone.folder() / "payload.apns")
      << R"({"Simulator Target Bundle":"com.apple.mobilecal","aps":{"alert":"Review"}})";
  EXPECT_EQ(phone.control("push payload.apns").status, 0);
  EXPECT_EQ(phone.execute({{"do", "notifications"}})["notifications"][0]["section"], "com.apple.mobilecal");
}

struct WrongPush {
  const char* name;
  const char* arguments;
  std::string payload;
  const char* error;
};

void PrintTo(const WrongPush& push, std::ostream* output) { *output << push.name; }

class RejectedPush : public testing::TestWithParam<WrongPush> {};

TEST_P(RejectedPush, ReportsTheErrorAndShowsNothing) {
  const LivePhone phone;
  const Outcome outcome = phone.control(std::string("push ") + GetParam().arguments, GetParam().payload);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr(GetParam().error));
  EXPECT_THAT(phone.titles(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Payloads, RejectedPush,
    testing::Values(
        WrongPush{"NoJson", "com.apple.MobileSMS -", "lunch", "payload - is not JSON"},
        WrongPush{"NoObject", "com.apple.MobileSMS -", "[]", "payload must be an object"},
        WrongPush{"DeeplyNested", "com.apple.MobileSMS -", std::string(50'000, '['), "nested more than 200 levels"},
        WrongPush{"NoAps", "com.apple.MobileSMS -", "{}", "aps must be an object"},
        WrongPush{"NoAlert", "com.apple.MobileSMS -", R"({"aps":{}})", "aps.alert must be a string or an object"},
        WrongPush{"EmptyAlert", "com.apple.MobileSMS -", R"({"aps":{"alert":{}}})", "aps.alert must have"},
        WrongPush{"WrongTitle", "com.apple.MobileSMS -", R"({"aps":{"alert":{"title":3}}})",
                  "aps.alert.title must be a string"},
        WrongPush{"WrongThread", "com.apple.MobileSMS -", R"({"aps":{"alert":"a","thread-id":3}})",
                  "aps.thread-id must be a string"},
        WrongPush{"WrongCategory", "com.apple.MobileSMS -", R"({"aps":{"alert":"a","category":3}})",
                  "aps.category must be a string"},
        WrongPush{"WrongSound", "com.apple.MobileSMS -", R"({"aps":{"alert":"a","sound":3}})", "aps.sound must be"},
        WrongPush{"TooLarge", "com.apple.MobileSMS -", R"({"aps":{"alert":")" + std::string(4096, 'a') + "\"}}",
                  "\"payload\" has 4116 bytes; the maximum is 4096"},
        WrongPush{"Huge", "com.apple.MobileSMS -", std::string(10'000'000, ' '), "the payload from standard input has"},
        WrongPush{"UnknownApplication", "com.example -", lunch, "\"application\": com.example is not installed"},
        WrongPush{"NoApplication", "-", lunch, "the application is missing"},
        WrongPush{"WrongApplication", "-", R"({"Simulator Target Bundle":3,"aps":{"alert":"a"}})",
                  "the application is missing"},
        WrongPush{"MissingFile", "com.apple.MobileSMS missing.json", "", "the payload missing.json cannot be read"},
        WrongPush{"Folder", "com.apple.MobileSMS root", "", "the payload root cannot be read"}),
    [](const auto& push) { return std::string(push.param.name); });

TEST(Settings, AreListedAndChanged) {
  const LivePhone phone;
  EXPECT_THAT(phone.control("settings list").output, StartsWith("enabled=true\nbackgroundBlur=true\n"));
  EXPECT_EQ(phone.control("settings get tinyBanner").output, "false\n");
  EXPECT_EQ(phone.control("settings set tinyBanner true").status, 0);
  EXPECT_TRUE(test::becomesTrue([&] { return phone.control("settings get tinyBanner").output == "true\n"; }));
  EXPECT_EQ(phone.control("settings set maxLineCount -3").status, 0);
  EXPECT_TRUE(test::becomesTrue([&] { return phone.control("settings get maxLineCount").output == "-3\n"; }));
  EXPECT_EQ(phone.control("settings reset tinyBanner").status, 0);
  EXPECT_TRUE(test::becomesTrue([&] { return phone.control("settings get tinyBanner").output == "false\n"; }));
}

TEST(Settings, RejectUnknownKeysAndValuesOfTheWrongType) {
  const LivePhone phone;
  EXPECT_THAT(phone.control("settings get nothing").errors, HasSubstr("there is no setting nothing"));
  EXPECT_THAT(phone.control("settings set tinyBanner 1").errors, HasSubstr("must be true or false, not 1"));
  EXPECT_THAT(phone.control("settings set maxLineCount 1.5").errors, HasSubstr("must be an integer, not 1.5"));
  EXPECT_THAT(phone.control("settings set maxLineCount").errors, HasSubstr("set KEY VALUE"));
  EXPECT_EQ(phone.control("settings set maxLineCount").status, 1);
}

TEST(Settings, DoNotExistWithoutTheLibrary) {
  const LivePhone phone({"--without-brim"});
  EXPECT_THAT(phone.control("settings list").errors, HasSubstr("runs without Brim"));
}

TEST(Appearance, ChangesThePicture) {
  const LivePhone phone;
  EXPECT_EQ(phone.control("screenshot light.png --scale 1").status, 0);
  EXPECT_EQ(phone.control("appearance dark").status, 0);
  EXPECT_EQ(phone.control("screenshot dark.png --scale 1").status, 0);
  EXPECT_EQ(test::runIn(phone.folder(), "cmp light.png dark.png").status, 1);
  EXPECT_THAT(phone.control("appearance black").errors, HasSubstr("specify light or dark"));
}

TEST(Screenshot, HasTheDevicesScaleUnlessAScaleIsSpecified) {
  const LivePhone phone({"--device", "iphone-8"});
  EXPECT_EQ(phone.control("screenshot large.png").status, 0);
  EXPECT_EQ(phone.control("--scale=1 screenshot small.png").status, 0);
  EXPECT_GT(std::filesystem::file_size(phone.folder() / "large.png"),
            std::filesystem::file_size(phone.folder() / "small.png"));
  EXPECT_THAT(phone.control("screenshot root").errors, HasSubstr("could not be written"));
}

TEST(Record, WritesAnAnimation) {
  const LivePhone phone;
  EXPECT_EQ(phone.control("record banner.webp --seconds 0.3").status, 0);
  EXPECT_GT(std::filesystem::file_size(phone.folder() / "banner.webp"), 0U);
  EXPECT_THAT(phone.control("record banner.webp --seconds 100").errors, HasSubstr("\"seconds\" of record must be"));
}

TEST(PhoneControl, ReportsHowToStartAPhone) {
  const test::TemporaryFolder folder;
  for (const char* arguments : {"tell '{\"do\":\"log\"}'", "appearance dark", "screenshot a.png", "settings list"}) {
    const Outcome outcome = test::runIn(folder.path(), std::string(PHONE_CONTROL) + " --root root " + arguments);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("start one with: ./brim springboard --live --root root\n"));
  }
}

TEST(PhoneControl, ReportsWrongUsage) {
  const test::TemporaryFolder folder;
  const auto run = [&](const char* arguments) {
    return test::runIn(folder.path(), std::string(PHONE_CONTROL) + " " + arguments);
  };
  EXPECT_THAT(run("").errors, HasSubstr("the subcommand is missing"));
  EXPECT_THAT(run("sing").errors, HasSubstr("there is no subcommand sing"));
  EXPECT_THAT(run("tell").errors, HasSubstr("usage: ./brim tell [option …] COMMAND…"));
  EXPECT_THAT(run("appearance light dark").errors, HasSubstr("usage: ./brim appearance"));
  EXPECT_THAT(run("tell --scale 3 x").errors, HasSubstr("tell has no option --scale"));
  EXPECT_THAT(run("screenshot a.png --scale -1").errors, HasSubstr("expected a number above 0"));
  EXPECT_EQ(run("tell").status, 2);
}

TEST(PhoneControl, DescribesEachSubcommand) {
  const test::TemporaryFolder folder;
  for (const char* name : {"tell", "push", "appearance", "screenshot", "record", "settings"}) {
    const Outcome outcome = test::runIn(folder.path(), std::string(PHONE_CONTROL) + " " + name + " --help");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, StartsWith(std::string(name) + ": "));
    EXPECT_THAT(outcome.output, HasSubstr(std::string("usage: ./brim ") + name));
    EXPECT_THAT(outcome.output, HasSubstr("--root DIR"));
  }
}

}  // namespace
