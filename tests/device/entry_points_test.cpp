// Functions and methods of the library, called in the way in which the phone's runtime calls them.
#include <gtest/gtest.h>

#include <array>
#include <ostream>

#include "tests/device/emulator/phone.hpp"

namespace {

using device::Address;
using device::Phone;
using device::Platform;

using Color = std::array<double, 4>;

Platform onVersion(const std::string& version) {
  Platform platform;
  platform.systemVersion = version;
  return platform;
}

std::string digest(Phone& phone, const std::string& text) {
  return phone.text(phone.runtime.send(phone.string(text), "MD5String"));
}

TEST(PhoneDigest, IsUpperCaseHexadecimal) {
  Phone phone;
  EXPECT_EQ(digest(phone, ""), "D41D8CD98F00B204E9800998ECF8427E");
  EXPECT_EQ(digest(phone, "abc"), "900150983CD24FB0D6963F7D28E17F72");
  EXPECT_EQ(digest(phone, "message digest"), "F96B697D7CB7938D525A2F31AAF161D0");
}

TEST(PhoneRandomString, ConsistsOfRandomLowerCaseLetters) {
  Phone phone;
  phone.c.randomNumbers = {1, 17, 8, 12, 25, 0, 2, 3};
  EXPECT_EQ(phone.text(phone.runtime.sendClass("NSString", "generateRandomString:", {8})), "brimzacd");
  EXPECT_EQ(phone.c.randomBounds, std::vector<std::uint32_t>(8, 26));
}

TEST(PhoneRandomString, IsEmptyForANegativeLength) {
  Phone phone;
  const auto minusOne = static_cast<std::uint64_t>(-1);
  EXPECT_EQ(phone.text(phone.runtime.sendClass("NSString", "generateRandomString:", {minusOne})), "");
}

class PhoneColors {
 public:
  PhoneColors(Phone& shownOn, std::int64_t mode) : phone(shownOn) {
    colors = phone.runtime.send(phone.runtime.sendClass("BrimColors", "alloc"),
                                "initWithMode:", {static_cast<std::uint64_t>(mode)});
  }
  Color operator[](const std::string& name) {
    const Address color = phone.runtime.send(colors, "container" + name + "Color");
    return std::any_cast<Color>(phone.runtime.object(color).value);
  }

  Phone& phone;
  Address colors;
};

// The colors of a mode. Only the background depends on the system version.
struct Palette {
  const char* version;
  std::int64_t mode;
  Color background, grabber, control, text, destructive;

  friend void PrintTo(const Palette& shown, std::ostream* stream) {
    *stream << "mode " << shown.mode << " on " << shown.version;
  }
};

class PhonePalette : public testing::TestWithParam<Palette> {};

TEST_P(PhonePalette, DependsOnTheModeAndTheSystemVersion) {
  const Palette& palette = GetParam();
  Phone phone(onVersion(palette.version));
  PhoneColors colors(phone, palette.mode);
  EXPECT_EQ(colors["Background"], palette.background);
  EXPECT_EQ(colors["Grabber"], palette.grabber);
  EXPECT_EQ(colors["Reply"], palette.control);
  EXPECT_EQ(colors["Button"], palette.control);
  EXPECT_EQ(colors["Text"], palette.text);
  EXPECT_EQ(colors["Delete"], palette.destructive);
}

constexpr Color white = {1, 1, 1, 1};
constexpr Color black = {0, 0, 0, 1};
constexpr Color red = {1, 0, 0, 1};
constexpr Color faintWhite = {1, 1, 1, 0.1};
constexpr Color darkRed = {0.75, 0, 0, 1};
constexpr Color nearlyBlack = {0.11, 0.11, 0.12, 1};
constexpr Color gray = {0.7, 0.7, 0.7, 1};

INSTANTIATE_TEST_SUITE_P(
    Modes, PhonePalette,
    testing::Values(Palette{"12.4", 1, {0, 0, 0, 0.8}, faintWhite, faintWhite, white, red},
                    Palette{"13.0", 1, {0, 0, 0, 0.3}, faintWhite, faintWhite, white, red},
                    Palette{"12.4", 2, {1, 1, 1, 0.3}, {0.2, 0.2, 0.2, 0.5}, {0, 0, 0, 0.1}, black, darkRed},
                    Palette{"13.0", 2, {1, 1, 1, 0.3}, {0.2, 0.2, 0.2, 0.5}, {0, 0, 0, 0.1}, black, darkRed},
                    Palette{"12.4", 3, black, {0.3, 0.3, 0.3, 1}, nearlyBlack, gray, red},
                    Palette{"13.0", 3, black, {0.3, 0.3, 0.3, 1}, nearlyBlack, gray, red},
                    Palette{"12.4", 0, black, {0.3, 0.3, 0.3, 1}, nearlyBlack, gray, red},
                    Palette{"13.0", -7, black, {0.3, 0.3, 0.3, 1}, nearlyBlack, gray, red}));

TEST(PhoneColorSet, UsesCustomColorsWhenEnabledAndReleasesThem) {
  Phone phone;
  PhoneColors colors(phone, 1);
  const Address own = phone.runtime.sendClass("UIColor", "redColor");
  phone.runtime.send(colors.colors, "setTextColor:", {own});
  EXPECT_EQ(colors["Text"], white);
  phone.runtime.send(colors.colors, "setUseCustomColors:", {1});
  EXPECT_EQ(colors["Text"], red);
  EXPECT_EQ(phone.runtime.object(own).retainCount, 2U);
  phone.runtime.release(colors.colors);
  EXPECT_TRUE(phone.runtime.object(colors.colors).isDeallocated);
  EXPECT_EQ(phone.runtime.object(own).retainCount, 1U);
}

TEST(PhoneColorSet, CopiesOnlyItsMode) {
  Phone phone;
  PhoneColors colors(phone, 2);
  phone.runtime.send(colors.colors, "setUseCustomColors:", {1});
  const Address copy = phone.runtime.send(colors.colors, "copy");
  EXPECT_NE(copy, colors.colors);
  EXPECT_EQ(phone.runtime.send(copy, "mode"), 2U);
  EXPECT_EQ(phone.runtime.send(copy, "useCustomColors") & 0xff, 0U);
}

TEST(PhoneProperty, OfBooleanTypeIsInitiallyFalse) {
  Phone phone;
  const Address controller = phone.runtime.make("NCNotificationShortLookViewController");
  EXPECT_EQ(phone.runtime.send(controller, "hasDismissed") & 0xff, 0U);
  phone.runtime.send(controller, "setHasDismissed:", {1});
  EXPECT_EQ(phone.runtime.send(controller, "hasDismissed") & 0xff, 1U);
  EXPECT_EQ(phone.runtime.send(controller, "isDismissing") & 0xff, 0U);
}

TEST(PhoneProperty, OfObjectTypeRetainsItsValue) {
  Phone phone;
  const Address controller = phone.runtime.make("NCNotificationShortLookViewController");
  const Address identifier = phone.string("abcdefgh");
  EXPECT_EQ(phone.runtime.send(controller, "brimIdentifier"), 0U);
  phone.runtime.send(controller, "setBrimIdentifier:", {identifier});
  EXPECT_EQ(phone.runtime.send(controller, "brimIdentifier"), identifier);
  EXPECT_EQ(phone.runtime.object(identifier).retainCount, 2U);
  phone.runtime.send(controller, "setBrimIdentifier:", {0});
  EXPECT_EQ(phone.runtime.object(identifier).retainCount, 1U);
}

TEST(PhoneHook, CallsTheReplacedMethodWithTheSameArguments) {
  Phone phone;
  const Address controller = phone.runtime.make("NCNotificationContentContainerViewController");
  phone.runtime.send(controller, "performAction:forNotification:withUserInfo:", {11, 22, 33});
  ASSERT_EQ(phone.platform.originalCalls.size(), 1U);
  const device::OriginalCall& original = phone.platform.originalCalls.front();
  EXPECT_EQ(original.self, controller);
  EXPECT_EQ(original.selector, "performAction:forNotification:withUserInfo:");
  EXPECT_EQ(original.integers.at(0), 11U);
  EXPECT_EQ(original.integers.at(1), 22U);
  EXPECT_EQ(original.integers.at(2), 33U);
}

TEST(PhoneEmulator, ReportsAnUnrecognizedSelector) {
  Phone phone;
  const Address view = phone.runtime.make("UIView");
  try {
    phone.runtime.send(view, "explode");
    FAIL() << "it was answered";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "no method implements -[UIView explode]");
  }
}

TEST(PhoneEmulator, ReportsTheFunctionAndAddressOfACrash) {
  Phone phone;
  try {
    phone.processor.call(phone.library().exported("_brim_installed_methods"), {0x40});
    FAIL() << "nothing was wrong with it";
  } catch (const std::runtime_error& error) {
    EXPECT_NE(std::string(error.what()).find("of address 0x40"), std::string::npos) << error.what();
    EXPECT_NE(std::string(error.what()).find("_brim_installed_methods +"), std::string::npos) << error.what();
  }
}

TEST(PhoneEmulator, ReportsAMissingImport) {
  Phone phone;
  try {
    phone.imports.resolve("_fork", "/usr/lib/libSystem.B.dylib");
    FAIL() << "it was supplied";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "an unexpected import: _fork of /usr/lib/libSystem.B.dylib");
  }
}

}  // namespace
