#include "simulator/foundation/injection_loader.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/objc/runtime_environment.hpp"

namespace {

namespace fs = std::filesystem;

class InjectionLoader : public RuntimeTest {
 protected:
  InjectionLoader() {
    fs::create_directories(folder);
    unsetenv("BRIM_TEST_INJECTED");
  }
  ~InjectionLoader() override { fs::remove_all(folder); }

  void addFilter(const std::string& name, const std::string& text) const {
    std::ofstream(folder / (name + ".plist")) << text;
  }
  fs::path addLibrary(const std::string& name) const {
    fs::copy_file(INJECTED_LIBRARY, folder / (name + ".dylib"));
    return folder / (name + ".dylib");
  }
  static bool isLoaded() { return std::getenv("BRIM_TEST_INJECTED") != nullptr; }

  fs::path folder = fs::canonical(testRoot()) / "Library/MobileSubstrate/DynamicLibraries";
  static constexpr const char* homeScreenFilter =
      "{ Filter = { Bundles = (\"com.apple.springboard\", \"com.apple.MobileSMS\"); }; }";
};
using Paths = std::vector<fs::path>;

TEST_F(InjectionLoader, LoadsTheLibraryIntoProcessesOfItsFilter) {
  addFilter("Wanted", homeScreenFilter);
  const fs::path library = addLibrary("Wanted");
  const auto outcome = foundation::injectLibraries("com.apple.MobileSMS");
  EXPECT_EQ(outcome.loaded, (Paths{library}));
  EXPECT_TRUE(outcome.failures.empty());
  EXPECT_TRUE(isLoaded());
}

TEST_F(InjectionLoader, DoesNotLoadTheLibraryIntoOtherProcesses) {
  addFilter("Unwanted", homeScreenFilter);
  addLibrary("Unwanted");
  const auto outcome = foundation::injectLibraries("com.apple.mobilesafari");
  EXPECT_TRUE(outcome.loaded.empty());
  EXPECT_TRUE(outcome.failures.empty());
  EXPECT_FALSE(isLoaded());
}

TEST_F(InjectionLoader, LoadsNothingIfTheFolderIsMissing) {
  fs::remove_all(folder);
  const auto outcome = foundation::injectLibraries("com.apple.springboard");
  EXPECT_TRUE(outcome.loaded.empty());
  EXPECT_TRUE(outcome.failures.empty());
}

TEST_F(InjectionLoader, ReportsInvalidFiltersAndLoadsTheOtherLibraries) {
  addFilter("Broken", "{ Filter = ");
  addFilter("WrongType", "{ Filter = { Bundles = \"com.apple.springboard\"; }; }");
  addFilter("List", "( 1, 2 )");
  addFilter("Valid", homeScreenFilter);
  fs::create_directory(folder / "Folder.plist");
  const fs::path library = addLibrary("Valid");
  testing::internal::CaptureStderr();
  const auto outcome = foundation::injectLibraries("com.apple.springboard");
  const std::string log = testing::internal::GetCapturedStderr();
  EXPECT_EQ(outcome.loaded, (Paths{library}));
  EXPECT_EQ(outcome.failures.size(), 4U);
  for (const char* name : {"Broken.plist", "WrongType.plist", "List.plist", "Folder.plist"})
    EXPECT_NE(log.find((folder / name).string() + ": not a filter"), std::string::npos) << log;
}

TEST_F(InjectionLoader, ReportsInvalidLibrariesAndLoadsTheOthers) {
  addFilter("Absent", homeScreenFilter);
  addFilter("Damaged", homeScreenFilter);
  addFilter("Valid", homeScreenFilter);
  std::ofstream(folder / "Damaged.dylib") << "not a library";
  const fs::path library = addLibrary("Valid");
  testing::internal::CaptureStderr();
  const auto outcome = foundation::injectLibraries("com.apple.springboard");
  const std::string log = testing::internal::GetCapturedStderr();
  EXPECT_EQ(outcome.loaded, (Paths{library}));
  ASSERT_EQ(outcome.failures.size(), 2U);
  EXPECT_NE(log.find("Absent.dylib"), std::string::npos);
  EXPECT_NE(log.find("Damaged.dylib"), std::string::npos);
}

TEST_F(InjectionLoader, FollowsSymbolicLinks) {
  addFilter("Linked", homeScreenFilter);
  fs::create_symlink(INJECTED_LIBRARY, folder / "Linked.dylib");
  EXPECT_EQ(foundation::injectLibraries("com.apple.springboard").loaded.size(), 1U);
}

}  // namespace
