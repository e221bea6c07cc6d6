#include "simulator/foundation/root.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "objc/class_definition.hpp"
#include "platform/ns_bundle.hpp"
#include "platform/ns_dictionary.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

namespace fs = std::filesystem;

using Root = RuntimeTest;

std::string inRoot(const char* path) { return testRoot().string() + path; }

void writeFile(const fs::path& path, const std::string& text) {
  fs::create_directories(path.parent_path());
  std::ofstream(path) << text;
}

NSObject* fileManager() { return objc::send<NSObject*, "defaultManager">(objc::lookUpClass<"NSFileManager">()); }
bool fileExists(NSString* path) { return objc::send<bool, "fileExistsAtPath:">(fileManager(), path); }
std::string fileSystemPath(NSString* path) { return objc::send<const char*, "fileSystemRepresentation">(path); }

TEST_F(Root, MapsAbsolutePlatformPaths) {
  EXPECT_EQ(foundation::root(), fs::canonical(testRoot()));
  EXPECT_EQ(foundation::pathUnderRoot("/var/mobile/Library"), inRoot("/var/mobile/Library"));
  EXPECT_EQ(foundation::pathUnderRoot("/Library/Anything"), inRoot("/Library/Anything"));
  EXPECT_EQ(foundation::pathUnderRoot("/private/var/mobile/x"), inRoot("/private/var/mobile/x"));
}

TEST_F(Root, DoesNotMapOtherPaths) {
  EXPECT_EQ(foundation::pathUnderRoot(inRoot("/var/mobile")), inRoot("/var/mobile"));
  EXPECT_EQ(foundation::pathUnderRoot("relative/path"), "relative/path");
  EXPECT_EQ(foundation::pathUnderRoot(""), "");
}

TEST_F(Root, FoundationMapsPlatformFolders) {
  EXPECT_EQ(fileSystemPath("/var/mobile/a"_ns), inRoot("/var/mobile/a"));
  EXPECT_EQ(fileSystemPath("/private/var/mobile/a"_ns), inRoot("/private/var/mobile/a"));
  EXPECT_EQ(fileSystemPath("/Library/Application Support/Brim/a"_ns), inRoot("/Library/Application Support/Brim/a"));
  EXPECT_EQ(fileSystemPath("/var/mobile"_ns), inRoot("/var/mobile"));
}

TEST_F(Root, FoundationDoesNotMapOtherFolders) {
  for (NSString* path :
       {"/usr/lib"_ns, "/var/mobility"_ns, "/Library/Application Support/Brimful"_ns, "/tmp"_ns, "var/mobile"_ns})
    EXPECT_EQ(fileSystemPath(path), path->UTF8String());
}

TEST_F(Root, FoundationReadsFilesUnderTheRoot) {
  writeFile(inRoot("/var/mobile/Containers/list.plist"), "{ key = value; }");
  EXPECT_TRUE(fileExists("/var/mobile/Containers/list.plist"_ns));
  EXPECT_TRUE(fileExists("/private/var/mobile/Containers/list.plist"_ns));
  EXPECT_FALSE(fileExists("/var/mobile/Containers/missing"_ns));
  const auto* const list = objc::send<NSDictionary*, "dictionaryWithContentsOfFile:">(
      NSDictionary::classObject(), "/private/var/mobile/Containers/list.plist"_ns);
  EXPECT_EQ(list->count(), 1U);
}

TEST_F(Root, PrivateVarIsALinkToVar) {
  writeFile(inRoot("/var/mobile/one"), "x");
  EXPECT_TRUE(fs::equivalent(inRoot("/private/var/mobile/one"), inRoot("/var/mobile/one")));
}

TEST_F(Root, DoesNotReplaceAnExistingPrivateFolder) {
  const fs::path other = testRoot() / "other-root";
  writeFile(other / "private/var/mobile/one", "x");
  EXPECT_EQ(foundation::useRoot(other, foundation::DefaultsDatabase::OfUser), std::nullopt);
  EXPECT_TRUE(fileExists("/private/var/mobile/one"_ns));
  EXPECT_FALSE(fileExists("/var/mobile/one"_ns));
  EXPECT_EQ(foundation::useRoot(testRoot(), foundation::DefaultsDatabase::OfUser), std::nullopt);
}

TEST_F(Root, FoundationListsFoldersUnderTheRoot) {
  writeFile(inRoot("/var/mobile/Containers/Shared/one/file"), "x");
  void* const noError = nullptr;
  const auto* const names = objc::send<NSArray*, "contentsOfDirectoryAtPath:error:">(
      fileManager(), "/var/mobile/Containers/Shared/"_ns, noError);
  ASSERT_EQ(names->count(), 1U);
  EXPECT_STREQ(objc::as<NSString>(names->firstObject())->UTF8String(), "one");
  EXPECT_EQ((objc::send<NSArray*, "contentsOfDirectoryAtPath:error:">(fileManager(), "/var/mobile/None/"_ns, noError)),
            nullptr);
}

TEST_F(Root, BundlesAreLoadedFromTheRoot) {
  EXPECT_EQ(NSBundle::bundleWithPath("/Library/Application Support/Brim/None.bundle"_ns), nullptr);
  writeFile(inRoot("/Library/Application Support/Brim/Some.bundle/picture.png"), "x");
  const NSBundle* const bundle = NSBundle::bundleWithPath("/Library/Application Support/Brim/Some.bundle"_ns);
  ASSERT_NE(bundle, nullptr);
  NSString* const picture = bundle->pathForResource("picture"_ns, "png"_ns);
  ASSERT_NE(picture, nullptr);
  EXPECT_TRUE(fs::exists(fileSystemPath(picture)));
  EXPECT_EQ(bundle->pathForResource("missing"_ns, "png"_ns), nullptr);
}

TEST_F(Root, HasItsOwnDefaultsDatabase) {
  EXPECT_EQ(std::system("defaults write org.example.isolation key value"), 0);
  EXPECT_TRUE(fs::exists(testRoot() / "var/mobile/Library/GNUstep/Defaults/org.example.isolation.plist"));
}

TEST_F(Root, IgnoresTheUsersGNUstepConfiguration) {
  const fs::path home = testRoot() / "home";
  writeFile(home / ".GNUstep.conf", "GNUSTEP_USER_DEFAULTS_DIR=" + (testRoot() / "elsewhere").string() + "\n");
  fs::permissions(home / ".GNUstep.conf", fs::perms::owner_read | fs::perms::owner_write);
  const std::string command = "HOME='" + home.string() + "' defaults write org.example.configuration key value";
  EXPECT_EQ(std::system(command.c_str()), 0);
  EXPECT_FALSE(fs::exists(testRoot() / "elsewhere"));
  EXPECT_TRUE(fs::exists(testRoot() / "var/mobile/Library/GNUstep/Defaults/org.example.configuration.plist"));
}

TEST_F(Root, UsingTheUsersDefaultsDatabaseDoesNotChangeTheEnvironment) {
  const char* const configuration = std::getenv("GNUSTEP_CONFIG_FILE");
  ASSERT_NE(configuration, nullptr);
  const std::string before = configuration;
  const fs::path other = testRoot() / "other-root";
  EXPECT_EQ(foundation::useRoot(other, foundation::DefaultsDatabase::OfUser), std::nullopt);
  EXPECT_EQ(foundation::pathUnderRoot("/var/mobile"), fs::canonical(other).string() + "/var/mobile");
  EXPECT_EQ(std::getenv("GNUSTEP_CONFIG_FILE"), before);
  EXPECT_EQ(foundation::useRoot(testRoot(), foundation::DefaultsDatabase::OfUser), std::nullopt);
}

// Foundation waits for a lock of this age, and reports the lock after the wait.
TEST_F(Root, LockOfAKilledProcessIsRemoved) {
  const fs::path other = testRoot() / "other-root";
  const fs::path lock = other / "var/mobile/Library/GNUstep/Defaults/.lck/.GNUstepDefaults.lck";
  fs::create_directories(lock);
  fs::last_write_time(lock, fs::file_time_type::clock::now() - std::chrono::seconds(10));
  const fs::path output = testRoot() / "output.txt";
  const std::string command = "env -u GNUSTEP_CONFIG_FILE -u TEMP -u TMP " USE_ROOT " '" + other.string() +
                              "' exit > '" + output.string() + "' 2>&1";
  ASSERT_EQ(std::system(command.c_str()), 0);
  std::ifstream file(output);
  const std::string printed{std::istreambuf_iterator<char>(file), {}};
  EXPECT_EQ(printed.find("lock"), std::string::npos) << printed;
  EXPECT_FALSE(fs::exists(lock));
}

TEST_F(Root, FolderThatCannotBeCreatedIsAnError) {
  const auto error = foundation::useRoot("/proc/no/such/root", foundation::DefaultsDatabase::OfRoot);
  ASSERT_NE(error, std::nullopt);
  EXPECT_NE(error->find("/proc/no/such/root"), std::string::npos);
  EXPECT_EQ(foundation::root(), fs::canonical(testRoot()));
}

}  // namespace
