#include <dlfcn.h>
#include <gtest/gtest.h>

#include "tests/hook_rows.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::Json;
using test::Phone;

Phone phoneWithSystem(const std::string& version) {
  test::Setup setup;
  setup.options.systemVersion = version;
  return Phone(setup);
}

Json installedRows(Phone& phone) { return phone.run({{"do", "hooks"}}).at("rows"); }

TEST(StartUp, InstallsTheHookTableInOrder) {
  Phone phone;
  const Json installed = installedRows(phone);
  ASSERT_EQ(installed.size(), std::size(test::hookRows));
  for (std::size_t index = 0; index < std::size(test::hookRows); ++index) {
    SCOPED_TRACE(index);
    EXPECT_EQ(installed[index].at("class"), test::hookRows[index].className);
    EXPECT_EQ(installed[index].at("selector"), test::hookRows[index].selector);
    EXPECT_EQ(installed[index].at("kind"), test::hookRows[index].kind);
    EXPECT_EQ(installed[index].at("encoding"), test::hookRows[index].encoding);
  }
}

TEST(StartUp, OnlyTheHooksForTheMessagesAppHaveNoEffectInTheHomeScreen) {
  Phone phone;
  for (const Json& row : installedRows(phone))
    EXPECT_EQ(row.at("effective"), row.at("class") != "CKConversationListController") << row;
}

class NotificationViewClass : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(NotificationViewClass, DependsOnTheSystemVersion) {
  Phone phone = phoneWithSystem(GetParam().first);
  const Json first = installedRows(phone).at(0);
  EXPECT_EQ(first.at("class"), GetParam().second);
  EXPECT_TRUE(first.at("effective"));
  EXPECT_FALSE(phone.banner(phone.present({{"title", "T"}})).is_null());
}

INSTANTIATE_TEST_SUITE_P(Versions, NotificationViewClass,
                         testing::Values(std::pair("9.3", "_NCNotificationViewControllerView"),
                                         std::pair("11.2", "_NCNotificationViewControllerView"),
                                         std::pair("11.4", "_NCNotificationViewControllerView"),
                                         std::pair("12.0", "NCNotificationViewControllerView"),
                                         std::pair("12.4", "NCNotificationViewControllerView"),
                                         std::pair("13.5", "NCNotificationViewControllerView")));

TEST(StartUp, DisabledLibraryInstallsNothing) {
  test::Setup setup;
  setup.settings = {{"enabled", false}};
  Phone phone(setup);
  EXPECT_TRUE(installedRows(phone).empty());
  const int controller = phone.present({{"title", "T"}});
  EXPECT_TRUE(phone.banner(controller).is_null());
  phone.set("enabled", true);
  EXPECT_TRUE(phone.banner(phone.present({{"title", "T"}})).is_null());
}

TEST(StartUp, DisablingTakesEffectAtTheNextStart) {
  Phone phone;
  phone.set("enabled", false);
  EXPECT_FALSE(phone.banner(phone.present({{"title", "T"}})).is_null());
}

TEST(StartUp, TheLibraryHasTheVersionOfTheProject) {
  const Phone phone;
  const std::filesystem::path file = phone.root() / "Library/MobileSubstrate/DynamicLibraries/Brim.dylib";
  void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD);
  ASSERT_NE(library, nullptr) << dlerror();
  const auto version = reinterpret_cast<const char* (*)()>(dlsym(library, "brim_version"));
  ASSERT_NE(version, nullptr) << dlerror();
  EXPECT_STREQ(version(), BRIM_VERSION);
}

}  // namespace
