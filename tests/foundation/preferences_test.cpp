#include "simulator/foundation/preferences.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/ns_array.hpp"
#include "platform/ns_number.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

namespace fs = std::filesystem;

// Each test has its own domain, with one registered Boolean and one registered integer.
class Preferences : public RuntimeTest {
 protected:
  Preferences() {
    foundation::useClock(foundation::ClockMode::Stepped, 0);
    preferences->registerBool(&flag, true, "flag"_ns);
    preferences->registerInteger(&number, 5, "number"_ns);
  }
  ~Preferences() override { fs::remove_all(file()); }

  static std::string domain() {
    return std::string("org.example.") + testing::UnitTest::GetInstance()->current_test_info()->name();
  }
  static fs::path file() { return testRoot() / "var/mobile/Library/GNUstep/Defaults" / (domain() + ".plist"); }

  // Changes or reads preferences in another process.
  static void runDefaults(const std::string& arguments) {
    EXPECT_EQ(std::system(("defaults " + arguments).c_str()), 0);
    foundation::pumpRunLoop();
  }
  static void store(const std::string& key, const std::string& value) {
    runDefaults("write " + domain() + " " + key + " '" + value + "'");
  }
  static void storeFile(const std::string& contents) {
    std::ofstream(file()) << contents;
    foundation::pumpRunLoop();
  }
  void expectDefaults() const {
    EXPECT_TRUE(flag);
    EXPECT_EQ(number, 5);
  }

  static constexpr const char* validFile = "{ flag = NO; number = 8; }";
  void expectValuesOfValidFile() const {
    EXPECT_FALSE(flag);
    EXPECT_EQ(number, 8);
  }

  bool flag = false;
  NSInteger number = -1;
  objc::Ref<HBPreferences> preferences =
      HBPreferences::withIdentifier(NSString::stringWithUTF8String(domain().c_str()));
};

TEST_F(Preferences, EmptyDomainGivesTheDefaults) { expectDefaults(); }

TEST_F(Preferences, FollowChangesByAnotherProcess) {
  store("number", "3");
  EXPECT_EQ(number, 3);
  store("flag", "NO");
  EXPECT_FALSE(flag);
  store("number", "12");
  EXPECT_EQ(number, 12);
}

TEST_F(Preferences, ReturnToTheDefaultWhenAnotherProcessDeletesTheValue) {
  store("number", "3");
  runDefaults("delete " + domain() + " number");
  EXPECT_EQ(number, 5);
}

TEST_F(Preferences, ReadValuesStoredBefore) {
  store("number", "3");
  const auto otherPreferences = HBPreferences::withIdentifier(NSString::stringWithUTF8String(domain().c_str()));
  NSInteger other = 0;
  otherPreferences->registerInteger(&other, 5, "number"_ns);
  EXPECT_EQ(other, 3);
}

TEST_F(Preferences, FollowChangesUnderTheRealClock) {
  foundation::useClock(foundation::ClockMode::Real, 0);
  const std::string command = "defaults write " + domain() + " number 44 &";
  EXPECT_EQ(std::system(command.c_str()), 0);
  const double deadline = foundation::now() + 30;
  foundation::runMainQueueUntil([&] { return number == 44 || foundation::now() > deadline; });
  EXPECT_EQ(number, 44);
}

TEST_F(Preferences, WrongTypesGiveTheDefaults) {
  storeFile("{ flag = (1, 2); number = { a = 1; }; }");
  expectDefaults();
  storeFile("{ flag = <01>; number = abc; }");
  expectDefaults();
  storeFile("{ flag = \"\"; number = \"\"; }");
  expectDefaults();
  storeFile(validFile);
  expectValuesOfValidFile();
}

TEST_F(Preferences, TypedValuesOfAnXmlPropertyListAreRead) {
  storeFile(
      "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>flag</key><false/><key>number</key>"
      "<integer>8</integer></dict></plist>");
  expectValuesOfValidFile();
}

TEST_F(Preferences, InvalidFileGivesTheDefaultsUntilItIsReplaced) {
  for (const std::string& contents :
       {std::string("not a property list {"), std::string("<?xml version=\"1.0\"?><plist><dict><key>flag</key>"),
        std::string(), std::string("bplist00\xff\xff\xff"), std::string(3000, '\0'), std::string(300000, '('),
        std::string("( 1, 2 )")}) {
    storeFile(contents);
    expectDefaults();
    storeFile(validFile);
    expectValuesOfValidFile();
  }
}

TEST_F(Preferences, OversizedFileGivesTheDefaultsUntilItIsReplaced) {
  storeFile(validFile);
  fs::resize_file(file(), 100'000'000);
  std::ofstream(file(), std::ios::app) << "{";
  foundation::pumpRunLoop();
  expectDefaults();
  storeFile(validFile);
  expectValuesOfValidFile();
}

TEST_F(Preferences, FolderInsteadOfTheFileGivesTheDefaultsUntilItIsRemoved) {
  storeFile(validFile);
  fs::remove(file());
  fs::create_directory(file());
  foundation::pumpRunLoop();
  expectDefaults();
  fs::remove(file());
  storeFile(validFile);
  expectValuesOfValidFile();
}

TEST_F(Preferences, PipeInsteadOfTheFileDoesNotBlock) {
  ASSERT_EQ(mkfifo(file().c_str(), S_IRUSR | S_IWUSR), 0);
  foundation::pumpRunLoop();
  expectDefaults();
}

TEST_F(Preferences, RemovedFileGivesTheDefaults) {
  storeFile(validFile);
  fs::remove(file());
  foundation::pumpRunLoop();
  expectDefaults();
}

TEST_F(Preferences, RecoverAfterTheFolderWasRemoved) {
  storeFile(validFile);
  fs::remove_all(file().parent_path());
  foundation::pumpRunLoop();
  expectDefaults();
  storeFile(validFile);
  expectValuesOfValidFile();
}

TEST_F(Preferences, FollowAFileMovedIntoPlace) {
  const fs::path prepared = testRoot() / "prepared.plist";
  std::ofstream(prepared) << validFile;
  fs::rename(prepared, file());
  foundation::pumpRunLoop();
  expectValuesOfValidFile();
}

TEST_F(Preferences, DoNotWriteVariablesAfterDeallocation) {
  preferences = nullptr;
  number = -7;
  storeFile(validFile);
  EXPECT_EQ(number, -7);
}

TEST_F(Preferences, DomainWithAnInvalidNameIsEmpty) {
  for (NSString* name : {static_cast<NSString*>(nullptr), ""_ns, "../escape"_ns}) {
    const auto nameless = HBPreferences::withIdentifier(name);
    NSInteger value = 0;
    nameless->registerInteger(&value, 9, "number"_ns);
    EXPECT_EQ(value, 9);
  }
}

TEST_F(Preferences, WritingTakesEffectAtOnce) {
  EXPECT_EQ(foundation::writePreference(domain(), "number", NSNumber::numberWithDouble(21)), std::nullopt);
  EXPECT_EQ(number, 21);
  EXPECT_EQ(foundation::writePreference(domain(), "flag", NSNumber::numberWithBool(false)), std::nullopt);
  EXPECT_FALSE(flag);
  EXPECT_EQ(number, 21);
  EXPECT_EQ(foundation::writePreference(domain(), "number", nullptr), std::nullopt);
  EXPECT_EQ(number, 5);
}

TEST_F(Preferences, WrittenValuesAreVisibleToOtherProcesses) {
  ASSERT_EQ(foundation::writePreference(domain(), "number", NSNumber::numberWithDouble(21)), std::nullopt);
  runDefaults("read " + domain() + " number | grep -qw 21");
}

TEST_F(Preferences, WritingKeepsValuesOfOtherProcesses) {
  store("number", "3");
  ASSERT_EQ(foundation::writePreference(domain(), "flag", "NO"_ns), std::nullopt);
  EXPECT_EQ(number, 3);
  EXPECT_FALSE(flag);
}

TEST_F(Preferences, WritingReplacesAnInvalidFile) {
  storeFile("not a property list {");
  ASSERT_EQ(foundation::writePreference(domain(), "number", "3"_ns), std::nullopt);
  EXPECT_EQ(number, 3);
}

TEST_F(Preferences, FailedWriteReturnsAnError) {
  EXPECT_NE(foundation::writePreference("", "number", "3"_ns), std::nullopt);
  EXPECT_NE(foundation::writePreference(domain(), "number", objc::make<NSObject>()), std::nullopt);
  EXPECT_NE(foundation::writePreference(domain(), "\xff", "3"_ns), std::nullopt);
  fs::create_directory(file());
  std::ofstream(file() / "occupied") << "x";
  const auto error = foundation::writePreference(domain(), "number", "3"_ns);
  ASSERT_NE(error, std::nullopt);
  EXPECT_NE(error->find(file().string()), std::string::npos);
  expectDefaults();
}

}  // namespace
