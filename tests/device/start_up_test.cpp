// The library's initializer in a phone's process: the settings it registers and the methods it replaces.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "tests/device/emulator/phone.hpp"
#include "tests/hook_rows.hpp"
#include "tests/setting_rows.hpp"

namespace {

using device::ChangedMethod;
using device::Phone;
using device::Platform;
using device::Process;

Platform onVersion(const std::string& version) {
  Platform platform;
  platform.systemVersion = version;
  return platform;
}

bool isOfThePlatform(const ChangedMethod& change) {
  return std::any_of(std::begin(test::hookRows), std::end(test::hookRows),
                     [&](const test::HookRow& row) { return change.className == row.className; });
}

std::vector<ChangedMethod> changesOfThePlatform(const Phone& phone) {
  std::vector<ChangedMethod> found;
  std::copy_if(phone.changes.begin(), phone.changes.end(), std::back_inserter(found), isOfThePlatform);
  return found;
}

TEST(PhoneStartUp, RegistersEverySettingInOrder) {
  const Phone phone;
  const auto& registrations = phone.platform.registrations;
  ASSERT_EQ(registrations.size(), std::size(test::settingRows));
  for (std::size_t index = 0; index < registrations.size(); ++index) {
    const test::SettingRow& row = test::settingRows[index];
    EXPECT_EQ(registrations[index].domain, "com.marrowgate.brimprefs");
    EXPECT_EQ(registrations[index].key, row.key);
    EXPECT_EQ(registrations[index].type, row.type == test::SettingType::Bool ? "bool" : "integer") << row.key;
    EXPECT_EQ(registrations[index].standard, row.defaultValue) << row.key;
    EXPECT_TRUE(phone.library().holdsVariable(registrations[index].variable)) << row.key;
  }
}

TEST(PhoneStartUp, ReportsTheRegisteredSettings) {
  Phone phone;
  const auto reported = phone.reportedSettings();
  ASSERT_EQ(reported.size(), phone.platform.registrations.size());
  for (std::size_t index = 0; index < reported.size(); ++index) {
    EXPECT_EQ(reported[index].key, phone.platform.registrations[index].key);
    EXPECT_EQ(reported[index].type, phone.platform.registrations[index].type);
    EXPECT_EQ(reported[index].variable, phone.platform.registrations[index].variable);
  }
}

TEST(PhoneStartUp, InstallsNothingWhenDisabled) {
  Platform platform;
  platform.storedSettings = {{"enabled", 0}};
  Phone phone(platform);
  EXPECT_EQ(phone.platform.registrations.size(), std::size(test::settingRows));
  EXPECT_TRUE(phone.changes.empty());
  EXPECT_TRUE(phone.platform.observers.empty());
  EXPECT_TRUE(phone.reportedMethods().empty());
  for (const char* function : {"objc_allocateClassPair", "class_addMethod", "MSHookMessageEx", "dispatch_async"})
    EXPECT_FALSE(phone.imports.called().contains(function)) << function;
}

TEST(PhoneStartUp, InstallsAllHooksInOrder) {
  const Phone phone;
  const std::vector<ChangedMethod> changes = changesOfThePlatform(phone);
  ASSERT_EQ(changes.size(), std::size(test::hookRows));
  for (std::size_t index = 0; index < changes.size(); ++index) {
    const test::HookRow& row = test::hookRows[index];
    SCOPED_TRACE(row.selector);
    EXPECT_EQ(changes[index].className, row.className);
    EXPECT_EQ(changes[index].selector, row.selector);
    EXPECT_EQ(changes[index].kind, row.kind);
    EXPECT_EQ(changes[index].isClassMethod, changes[index].selector == "brimSharedWindow");
    if (changes[index].kind == "add") {
      EXPECT_EQ(changes[index].encoding, row.encoding);
    }
  }
}

TEST(PhoneStartUp, ReportsTheInstalledHooks) {
  Phone phone;
  const auto reported = phone.reportedMethods();
  ASSERT_EQ(reported.size(), std::size(test::hookRows));
  for (std::size_t index = 0; index < reported.size(); ++index) {
    const test::HookRow& row = test::hookRows[index];
    SCOPED_TRACE(row.selector);
    EXPECT_EQ(reported[index].className, row.className);
    EXPECT_EQ(reported[index].selector, row.selector);
    EXPECT_EQ(reported[index].kind, row.kind);
    EXPECT_EQ(reported[index].encoding, row.encoding);
    EXPECT_TRUE(reported[index].effective);
  }
}

TEST(PhoneStartUp, InstallsNothingIfTheClassesAreMissing) {
  Phone phone({}, Process::Other);
  EXPECT_TRUE(changesOfThePlatform(phone).empty());
  const auto reported = phone.reportedMethods();
  ASSERT_EQ(reported.size(), std::size(test::hookRows));
  for (const Phone::ReportedMethod& method : reported) EXPECT_FALSE(method.effective) << method.selector;
}

TEST(PhoneStartUp, LeavesNoPoolOpenAndAddsNoObservers) {
  Phone phone;
  EXPECT_TRUE(phone.platform.observers.empty());
  EXPECT_TRUE(phone.c.delayedWork.empty());
  EXPECT_THROW(phone.runtime.drainPool(), std::logic_error);
}

class PhoneNotificationViewClass : public testing::TestWithParam<std::pair<std::string, std::string>> {};

TEST_P(PhoneNotificationViewClass, DependsOnTheSystemVersion) {
  Phone phone(onVersion(GetParam().first));
  const Phone::ReportedMethod first = phone.reportedMethods().at(0);
  EXPECT_EQ(first.className, GetParam().second);
  EXPECT_EQ(first.selector, "didMoveToSuperview");
  EXPECT_TRUE(first.effective);
}

INSTANTIATE_TEST_SUITE_P(Versions, PhoneNotificationViewClass,
                         testing::Values(std::pair("11.2", "_NCNotificationViewControllerView"),
                                         std::pair("11.4", "_NCNotificationViewControllerView"),
                                         std::pair("12.0", "NCNotificationViewControllerView"),
                                         std::pair("13.0", "NCNotificationViewControllerView")));

}  // namespace
