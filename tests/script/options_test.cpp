// Tests of the command-line options of the springboard program, and of dates in ISO 8601 format.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/base/iso_time.hpp"
#include "simulator/runner/springboard_options.hpp"

namespace {

using process::LibraryUse;
using runner::Options;
using runner::StartAppearance;

auto parse(const std::vector<const char*>& arguments) { return runner::parseOptions(arguments); }

Options accepted(const std::vector<const char*>& arguments) {
  const auto parsed = parse(arguments);
  if (const auto* error = std::get_if<process::OptionError>(&parsed)) ADD_FAILURE() << error->message;
  const auto* options = std::get_if<Options>(&parsed);
  return options == nullptr ? Options() : *options;
}

std::string refused(const std::vector<const char*>& arguments) {
  const auto parsed = parse(arguments);
  const auto* error = std::get_if<process::OptionError>(&parsed);
  return error == nullptr ? "" : error->message;
}

TEST(Options, HaveDefaults) {
  const Options options = accepted({});
  EXPECT_TRUE(options.root.empty());
  EXPECT_EQ(options.device, "iphone-x");
  EXPECT_EQ(options.systemVersion, "13.5");
  EXPECT_EQ(options.appearance, StartAppearance::Light);
  EXPECT_EQ(options.locale, "en_US");
  EXPECT_FALSE(options.time);
  EXPECT_EQ(options.window, std::nullopt);
  EXPECT_EQ(options.welcome, runner::Welcome::None);
  EXPECT_EQ(options.library, LibraryUse::Loaded);
  EXPECT_TRUE(options.script.empty());
  EXPECT_TRUE(options.demonstration.empty());
}

TEST(Options, OverrideTheDefaults) {
  const Options options =
      accepted({"--root", "folder", "--device", "iphone-se", "--system", "11.4", "--appearance", "dark", "--locale",
                "ar_EG", "--time", "2020-03-14T09:41:00Z", "--without-brim", "--script", "-"});
  EXPECT_EQ(options.root, "folder");
  EXPECT_EQ(options.device, "iphone-se");
  EXPECT_EQ(options.systemVersion, "11.4");
  EXPECT_EQ(options.appearance, StartAppearance::Dark);
  EXPECT_EQ(options.locale, "ar_EG");
  EXPECT_EQ(options.time, 1584178860.0);
  EXPECT_EQ(options.library, LibraryUse::Absent);
  EXPECT_EQ(options.script, "-");
}

TEST(Options, LivePhoneCanPlayTheWelcome) {
  EXPECT_EQ(accepted({"--welcome", "--live"}).welcome, runner::Welcome::Played);
}

TEST(Options, LivePhoneCanHaveAWindow) {
  EXPECT_EQ(accepted({"--window", "--live"}).window, runner::WindowPlace::Desktop);
  EXPECT_EQ(accepted({"--browser", "--live"}).window, runner::WindowPlace::WebPage);
}

TEST(Options, AcceptAnEqualsSign) { EXPECT_EQ(accepted({"--device=iphone-8"}).device, "iphone-8"); }

TEST(Options, SystemVersionGetsAMinorNumber) { EXPECT_EQ(accepted({"--system", "13"}).systemVersion, "13.0"); }

TEST(Options, LocaleAcceptsAHyphen) { EXPECT_EQ(accepted({"--locale", "de-DE"}).locale, "de_DE"); }

TEST(Options, HelpIsAcceptedAtAnyPosition) {
  const auto parsed = parse({"--device", "iphone-8", "--help"});
  EXPECT_TRUE(std::holds_alternative<process::HelpRequest>(parsed));
}

TEST(Options, HelpListsEveryOptionWithItsDefault) {
  const std::string help = runner::helpText();
  for (const char* name : {"--root", "--device", "--system", "--appearance", "--locale", "--time", "--without-brim",
                           "--script", "--live", "--window", "--demonstration", "--help", "iphone-11-pro-max"})
    EXPECT_NE(help.find(name), std::string::npos) << name;
  for (const char* value : {"default: iphone-x", "default: 13.5", "default: light", "default: en_US"})
    EXPECT_NE(help.find(value), std::string::npos) << value;
}

struct Refusal {
  std::vector<const char*> arguments;
  const char* reason;
};

TEST(Options, ErrorsNameTheExpectedInput) {
  const Refusal refusals[] = {{{"--color", "red"}, "unknown option --color"},
                              {{"script"}, "unknown option script"},
                              {{""}, "unknown option"},
                              {{"--device"}, "--device requires a value"},
                              {{"--device", "iphone-5"}, "iphone-se, iphone-8, iphone-x, iphone-11-pro-max"},
                              {{"--system", "13.x"}, "such as 11.4"},
                              {{"--system", "9.3"}, "11.0 or later"},
                              {{"--system", "13.5.1.2"}, "such as 11.4"},
                              {{"--system", ""}, "such as 11.4"},
                              {{"--appearance", "gray"}, "light or dark"},
                              {{"--locale", "german"}, "such as en_US"},
                              {{"--locale", "de_de"}, "such as en_US"},
                              {{"--time", "noon"}, "2020-03-14T09:41"},
                              {{"--time", "2020-02-30T09:41"}, "2020-03-14T09:41"},
                              {{"--without-brim=yes"}, "takes no value"},
                              {{"--script", ""}, "a file, or -"},
                              {{"--root", ""}, "a folder"},
                              {{"--window"}, "--window requires --live"},
                              {{"--browser"}, "--browser requires --live"},
                              {{"--live", "--window", "--browser"}, "only one of --window and --browser"},
                              {{"--live", "--browser", "--window"}, "only one of --window and --browser"},
                              {{"--welcome"}, "--welcome requires --live"},
                              {{"--demonstration="}, "a folder"}};
  for (const Refusal& refusal : refusals) {
    const std::string reason = refused(refusal.arguments);
    EXPECT_NE(reason.find(refusal.reason), std::string::npos) << refusal.arguments.front() << ": " << reason;
  }
}

// Returns the options that the phone has after a restart.
runner::Options restarted(const runner::Options& options) {
  const std::vector<std::string> words = runner::argumentsOf(options);
  std::vector<const char*> arguments;
  arguments.reserve(words.size());
  for (const std::string& word : words) arguments.push_back(word.c_str());
  return std::get<runner::Options>(runner::parseOptions(arguments));
}

TEST(Options, AreTheSameAfterARestartOfALivePhone) {
  runner::Options options;
  options.clock = foundation::ClockMode::Real;
  EXPECT_TRUE(restarted(options).root.empty());
  EXPECT_EQ(restarted(options).clock, foundation::ClockMode::Real);
  EXPECT_EQ(restarted(options).window, std::nullopt);
  EXPECT_EQ(restarted(options).library, process::LibraryUse::Loaded);
  options.root = "a folder";
  options.device = "iphone-8";
  options.systemVersion = "12.4";
  options.locale = "ar_EG";
  options.appearance = runner::StartAppearance::Dark;
  options.library = process::LibraryUse::Absent;
  options.window = runner::WindowPlace::WebPage;
  options.welcome = runner::Welcome::Played;
  EXPECT_EQ(restarted(options).root, options.root);
  EXPECT_EQ(restarted(options).device, options.device);
  EXPECT_EQ(restarted(options).systemVersion, options.systemVersion);
  EXPECT_EQ(restarted(options).locale, options.locale);
  EXPECT_EQ(restarted(options).appearance, options.appearance);
  EXPECT_EQ(restarted(options).library, options.library);
  EXPECT_EQ(restarted(options).window, options.window);
  EXPECT_EQ(restarted(options).welcome, options.welcome);
}

TEST(IsoTime, IsParsedInEveryForm) {
  EXPECT_EQ(base::parseIsoTime("1970-01-02T00:00Z"), 86400.0);
  EXPECT_EQ(base::parseIsoTime("1970-01-01 00:00:01.5Z"), 1.5);
  EXPECT_EQ(base::parseIsoTime("1970-01-01T02:00+02:00"), 0.0);
  EXPECT_EQ(base::parseIsoTime("1970-01-01T00:00:00-0030"), 1800.0);
  EXPECT_EQ(base::parseIsoTime("1969-12-31T23:59:59Z"), -1.0);
}

TEST(IsoTime, IsInTheLocalTimeZoneWithoutAnOffset) {
  setenv("TZ", "UTC-3", 1);
  tzset();
  EXPECT_EQ(base::parseIsoTime("1970-01-01T03:00"), 0.0);
  EXPECT_EQ(base::parseIsoTime("1970-01-01"), -10800.0);
}

TEST(IsoTime, RejectsInvalidDates) {
  for (const char* text : {"", "1970", "1970-13-01", "1970-01-01T24:00Z", "1970-01-01T00:60Z", "1970-01-01T00:00:60Z",
                           "1970-01-01T00:00+15:00", "1970-01-01T00:00Zulu", "+1970-01-01"})
    EXPECT_FALSE(base::parseIsoTime(text)) << text;
}

TEST(IsoTime, IsWrittenInUtc) {
  EXPECT_EQ(base::formatIsoTime(0.25), "1970-01-01T00:00:00.250Z");
  EXPECT_EQ(base::formatIsoTime(-0.5), "1969-12-31T23:59:59.500Z");
}

}  // namespace
