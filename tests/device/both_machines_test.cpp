// Behavior that must be the same on the phone and on Linux, tested with the phone's library.
#include "tests/both_machines.hpp"

#include <gtest/gtest.h>

#include <bit>

#include "tests/device/banner.hpp"

namespace {

using device::Address;
using device::Banner;
using device::Phone;
using device::Platform;
using device::storedValue;

TEST(PhoneOfBothMachines, StoresABooleanProperty) {
  Phone phone;
  const device::ClassRecord& type = *phone.runtime.find("NCNotificationShortLookViewController");
  EXPECT_EQ(type.findMethod("hasDismissed")->encoding, test::flagGetterEncoding);
  EXPECT_EQ(type.findMethod("setHasDismissed:")->encoding, test::flagSetterEncoding);
  const Address controller = phone.runtime.make(type.name);
  const auto hasDismissed = [&] { return (phone.runtime.send(controller, "hasDismissed") & 0xff) != 0; };
  EXPECT_FALSE(hasDismissed());
  phone.runtime.send(controller, "setHasDismissed:", {1});
  EXPECT_TRUE(hasDismissed());
  phone.runtime.send(controller, "setHasDismissed:", {0});
  EXPECT_FALSE(hasDismissed());
}

TEST(PhoneOfBothMachines, ForwardsABooleanResult) {
  for (const std::uint64_t answer : {std::uint64_t{0}, std::uint64_t{1}}) {
    Platform platform;
    platform.truthOfOriginals = answer;
    Phone phone(platform);
    const Address controller = phone.runtime.make("NCNotificationContentContainerViewController");
    EXPECT_EQ(phone.runtime.send(controller, "performAction:forNotification:withUserInfo:", {1, 2, 3}) & 0xff, answer);
  }
}

void expectStatusLine(const test::StatusLine& line) {
  Phone phone;
  const Address application = phone.runtime.sendClass("UIApplication", "sharedApplication");
  const Address window = phone.runtime.send(application, "keyWindow");
  storeValues(phone.runtime, window, "safeAreaInsets", {0, 0, std::bit_cast<std::uint64_t>(line.bottomSafeArea), 0});
  Banner banner(phone);
  banner.show();
  EXPECT_TRUE(holds(activeConstraints(phone), "BrimLabel.top == BrimContainer.top", line.top));
}

TEST(PhoneOfBothMachines, FindsTheStatusLineWithAHomeButton) { expectStatusLine(test::statusLineWithHomeButton); }

TEST(PhoneOfBothMachines, FindsTheStatusLineWithoutAHomeButton) { expectStatusLine(test::statusLineWithoutHomeButton); }

TEST(PhoneOfBothMachines, ForwardsARectangleInItsRegisters) {
  Phone phone;
  const Address window = phone.runtime.sendClass("UIStatusBarWindow", "alloc");
  EXPECT_EQ(phone.runtime.send(window, "initWithFrame:", {}, {1.5, 2.5, 375, 44}), window);
  const std::vector<double>& numbers = phone.platform.originalCalls.at(0).numbers;
  EXPECT_EQ(std::vector<double>(numbers.begin(), numbers.begin() + 4), (std::vector<double>{1.5, 2.5, 375, 44}));
  EXPECT_EQ(phone.runtime.sendClass("UIStatusBarWindow", "brimSharedWindow"), window);
}

TEST(PhoneOfBothMachines, LoadsTheAssetsFromTheSamePath) {
  Phone phone;
  Banner banner(phone);
  EXPECT_EQ(phone.text(banner.part("_lBundle")), test::assetBundle);
}

TEST(PhoneOfBothMachines, PublishesTheTestBannerOnTheServersQueue) {
  Phone phone;
  const Address queue = phone.processor.allocate(64);
  const Address queueVariable = phone.processor.allocate(sizeof(Address));
  phone.processor.store(queueVariable, queue);
  phone.c.symbols["__BBServerQueue"] = queueVariable;
  const Address server = phone.runtime.send(phone.runtime.sendClass("BBServer", "alloc"), "initWithQueue:", {queue});

  phone.runtime.send(phone.runtime.make("SBHomeScreenViewController"), "receivedBannerTest");

  ASSERT_EQ(phone.platform.published.size(), 1U);
  const Address bulletin = phone.platform.published.front().first;
  const auto text = [&](const char* property) { return phone.text(storedValue(phone.runtime, bulletin, property)); };
  EXPECT_EQ(text("title"), test::testBulletin.title);
  EXPECT_EQ(text("message"), test::testBulletin.message);
  EXPECT_EQ(text("sectionID"), test::testBulletin.section);
  EXPECT_EQ(phone.platform.published.front().second, test::testBulletin.destinations);
  EXPECT_EQ(phone.c.synchronousQueues, std::vector<Address>{queue});
  EXPECT_EQ(phone.runtime.object(server).retainCount, 2U);
}

TEST(PhoneOfBothMachines, LooksUpSymbolsInTheRunningProgram) {
  constexpr std::uint64_t globalOnThePhone = 8;
  Phone phone;
  phone.runtime.send(phone.runtime.sendClass("BBServer", "alloc"), "initWithQueue:", {0});
  phone.runtime.send(phone.runtime.make("SBHomeScreenViewController"), "receivedBannerTest");
  // The initializer looks up the hook function in the same way.
  ASSERT_EQ(phone.c.openings.size(), 2U);
  for (const auto& opening : phone.c.openings) {
    EXPECT_EQ(opening.path, 0U);
    EXPECT_EQ(static_cast<std::uint32_t>(opening.mode), globalOnThePhone);
  }
}

}  // namespace
