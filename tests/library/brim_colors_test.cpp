#include <gtest/gtest.h>

#include "library/view/brim_colors.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::Phone;

struct Components {
  double red, green, blue, alpha;
  friend bool operator==(const Components&, const Components&) = default;
  friend void PrintTo(const Components& shown, std::ostream* stream) {
    *stream << shown.red << ", " << shown.green << ", " << shown.blue << ", " << shown.alpha;
  }
};

Components components(UIColor* color) {
  Components read{};
  color->getRed(&read.red, &read.green, &read.blue, &read.alpha);
  return read;
}

void setCustom(BrimColors* colors, UIColor* text) {
  objc::send<void, "setTextColor:">(colors, text);
  objc::send<void, "setUseCustomColors:">(colors, true);
}

Phone phoneWithSystem(const std::string& version) {
  test::Setup setup;
  setup.options.systemVersion = version;
  return Phone(setup);
}

TEST(Colors, DarkPaletteIsWhiteOnTranslucentBlack) {
  const Phone phone;
  const auto colors = BrimColors::withMode(darkMode);
  EXPECT_EQ(components(colors->containerBackgroundColor()), (Components{0, 0, 0, 0.3}));
  EXPECT_EQ(components(colors->containerGrabberColor()), (Components{1, 1, 1, 0.1}));
  EXPECT_EQ(components(colors->containerReplyColor()), (Components{1, 1, 1, 0.1}));
  EXPECT_EQ(components(colors->containerTextColor()), (Components{1, 1, 1, 1}));
  EXPECT_EQ(components(colors->containerButtonColor()), (Components{1, 1, 1, 0.1}));
  EXPECT_EQ(components(colors->containerDeleteColor()), (Components{1, 0, 0, 1}));
}

TEST(Colors, LightPaletteIsBlackOnTranslucentWhiteWithADarkRed) {
  const Phone phone;
  const auto colors = BrimColors::withMode(lightMode);
  EXPECT_EQ(components(colors->containerBackgroundColor()), (Components{1, 1, 1, 0.3}));
  EXPECT_EQ(components(colors->containerGrabberColor()), (Components{0.2, 0.2, 0.2, 0.5}));
  EXPECT_EQ(components(colors->containerReplyColor()), (Components{0, 0, 0, 0.1}));
  EXPECT_EQ(components(colors->containerTextColor()), (Components{0, 0, 0, 1}));
  EXPECT_EQ(components(colors->containerButtonColor()), (Components{0, 0, 0, 0.1}));
  EXPECT_EQ(components(colors->containerDeleteColor()), (Components{0.75, 0, 0, 1}));
}

class BlackMode : public testing::TestWithParam<NSInteger> {};

TEST_P(BlackMode, IsGrayOnOpaqueBlack) {
  const Phone phone;
  const auto colors = BrimColors::withMode(GetParam());
  EXPECT_EQ(components(colors->containerBackgroundColor()), (Components{0, 0, 0, 1}));
  EXPECT_EQ(components(colors->containerGrabberColor()), (Components{0.3, 0.3, 0.3, 1}));
  EXPECT_EQ(components(colors->containerReplyColor()), (Components{0.11, 0.11, 0.12, 1}));
  EXPECT_EQ(components(colors->containerTextColor()), (Components{0.7, 0.7, 0.7, 1}));
  EXPECT_EQ(components(colors->containerButtonColor()), (Components{0.11, 0.11, 0.12, 1}));
  EXPECT_EQ(components(colors->containerDeleteColor()), (Components{1, 0, 0, 1}));
}

INSTANTIATE_TEST_SUITE_P(EveryOtherMode, BlackMode, testing::Values(3, 0, -1, 4, INT64_MAX));

class DarkBackground : public testing::TestWithParam<std::pair<const char*, double>> {};

TEST_P(DarkBackground, HasTheAlphaOfTheSystemVersion) {
  const Phone phone = phoneWithSystem(GetParam().first);
  EXPECT_EQ(components(BrimColors::withMode(darkMode)->containerBackgroundColor()),
            (Components{0, 0, 0, GetParam().second}));
}

INSTANTIATE_TEST_SUITE_P(Versions, DarkBackground,
                         testing::Values(std::pair("11.4", 0.8), std::pair("12.4", 0.8), std::pair("13.0", 0.3),
                                         std::pair("13.5", 0.3), std::pair("14.2", 0.3)));

TEST(Colors, LightAndBlackBackgroundsAreTheSameBefore13) {
  const Phone phone = phoneWithSystem("12.4");
  EXPECT_EQ(components(BrimColors::withMode(lightMode)->containerBackgroundColor()), (Components{1, 1, 1, 0.3}));
  EXPECT_EQ(components(BrimColors::withMode(blackMode)->containerBackgroundColor()), (Components{0, 0, 0, 1}));
}

TEST(Colors, CustomColorReplacesItsPaletteEntryOnlyWhenSet) {
  const Phone phone;
  const auto colors = BrimColors::withMode(darkMode);
  setCustom(colors, nullptr);
  EXPECT_EQ(components(colors->containerTextColor()), (Components{1, 1, 1, 1}));
  setCustom(colors, UIColor::withRed(0.25, 0.5, 0.75, 1));
  EXPECT_EQ(components(colors->containerTextColor()), (Components{0.25, 0.5, 0.75, 1}));
  EXPECT_EQ(components(colors->containerButtonColor()), (Components{1, 1, 1, 0.1}));
}

// The accessors of a custom color and of the color that it replaces.
struct CustomColorCase {
  const char* name;
  void (*set)(BrimColors* colors, UIColor* color);
  UIColor* (*get)(BrimColors* colors);
};

void PrintTo(const CustomColorCase& given, std::ostream* stream) { *stream << given.name; }

constexpr CustomColorCase customColors[] = {
    {"Background", [](BrimColors* colors, UIColor* color) { objc::send<void, "setBackgroundColor:">(colors, color); },
     [](BrimColors* colors) { return colors->containerBackgroundColor(); }},
    {"Grabber", [](BrimColors* colors, UIColor* color) { objc::send<void, "setGrabberColor:">(colors, color); },
     [](BrimColors* colors) { return colors->containerGrabberColor(); }},
    {"Reply", [](BrimColors* colors, UIColor* color) { objc::send<void, "setReplyColor:">(colors, color); },
     [](BrimColors* colors) { return colors->containerReplyColor(); }},
    {"Text", [](BrimColors* colors, UIColor* color) { objc::send<void, "setTextColor:">(colors, color); },
     [](BrimColors* colors) { return colors->containerTextColor(); }},
    {"Button", [](BrimColors* colors, UIColor* color) { objc::send<void, "setButtonColor:">(colors, color); },
     [](BrimColors* colors) { return colors->containerButtonColor(); }},
    {"Delete", [](BrimColors* colors, UIColor* color) { objc::send<void, "setDeleteColor:">(colors, color); },
     [](BrimColors* colors) { return colors->containerDeleteColor(); }},
};

class CustomColor : public testing::TestWithParam<CustomColorCase> {};

TEST_P(CustomColor, ReplacesOnlyItsOwnColor) {
  const Phone phone;
  const Components custom = {0.25, 0.5, 0.75, 1};
  for (const NSInteger mode : {darkMode, lightMode, blackMode}) {
    const auto palette = BrimColors::withMode(mode);
    const auto colors = BrimColors::withMode(mode);
    GetParam().set(colors, UIColor::withRed(0.25, 0.5, 0.75, 1));
    EXPECT_EQ(components(GetParam().get(colors)), components(GetParam().get(palette))) << "custom colors are off";
    objc::send<void, "setUseCustomColors:">(colors.get(), true);
    for (const CustomColorCase& each : customColors) {
      const bool isReplaced = each.get == GetParam().get;
      EXPECT_EQ(components(each.get(colors)), isReplaced ? custom : components(each.get(palette))) << each.name;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, CustomColor, testing::ValuesIn(customColors),
                         [](const auto& each) { return each.param.name; });

TEST(Colors, CustomColorsAreIgnoredWhileDisabled) {
  const Phone phone;
  const auto colors = BrimColors::withMode(darkMode);
  setCustom(colors, UIColor::withRed(0.25, 0.5, 0.75, 1));
  objc::send<void, "setUseCustomColors:">(colors.get(), false);
  EXPECT_EQ(components(colors->containerTextColor()), (Components{1, 1, 1, 1}));
}

TEST(Colors, CopyHasTheModeAndNoCustomColors) {
  const Phone phone;
  const auto colors = BrimColors::withMode(blackMode);
  setCustom(colors, UIColor::withRed(0.25, 0.5, 0.75, 1));
  const auto copy = objc::adopt(objc::send<BrimColors*, "copy">(colors.get()));
  EXPECT_NE(copy.get(), colors.get());
  EXPECT_EQ(copy->mode(), blackMode);
  EXPECT_FALSE(copy->useCustomColors());
  EXPECT_EQ((objc::send<UIColor*, "textColor">(copy.get())), nullptr);
}

}  // namespace
