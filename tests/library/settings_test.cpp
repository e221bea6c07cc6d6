#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>

#include "tests/library/phone.hpp"
#include "tests/setting_rows.hpp"

namespace {

using test::Json;
using test::Phone;

Json settings(Phone& phone) { return phone.run({{"do", "settings"}}).at("settings"); }

Json allDefaults() {
  Json values;
  for (const test::SettingRow& row : test::settingRows)
    values[row.key] = row.type == test::SettingType::Bool ? Json(row.defaultValue != 0) : Json(row.defaultValue);
  return values;
}
const Json defaults = allDefaults();

TEST(Settings, AreTheDefaultsInRegistrationOrderIfNothingIsStored) {
  Phone phone;
  EXPECT_EQ(settings(phone).dump(), defaults.dump());
}

TEST(Settings, StoredValueIsUsedAndRemovalRestoresTheDefault) {
  Phone phone;
  for (const auto& [key, defaultValue] : defaults.items()) {
    const Json other = defaultValue.is_boolean() ? Json(!defaultValue.get<bool>()) : Json(defaultValue.get<int>() + 7);
    phone.set(key, other);
    EXPECT_EQ(settings(phone).at(key), other) << key;
    phone.set(key, nullptr);
    EXPECT_EQ(settings(phone).at(key), defaultValue) << key;
  }
}

TEST(Settings, ValueOfAWrongTypeMeansTheDefault) {
  Phone phone;
  for (const Json& wrong : {Json("abc"), Json(""), Json::array({1}), Json({{"a", 1}})}) {
    phone.set("maxLineCount", wrong);
    phone.set("tinyBanner", wrong);
    EXPECT_EQ(settings(phone).at("maxLineCount"), 2) << wrong;
    EXPECT_EQ(settings(phone).at("tinyBanner"), false) << wrong;
  }
}

TEST(Settings, StringsWrittenByTheDefaultsToolAreParsed) {
  Phone phone;
  phone.set("maxLineCount", "7");
  phone.set("tinyBanner", "YES");
  EXPECT_EQ(settings(phone).at("maxLineCount"), 7);
  EXPECT_EQ(settings(phone).at("tinyBanner"), true);
}

TEST(Settings, ExtremeValuesDoNotEndTheProcess) {
  Phone phone;
  for (const std::int64_t extreme : {INT64_MAX, INT64_MIN, std::int64_t{-1}, std::int64_t{0}, std::int64_t{100'000}}) {
    for (const auto& [key, defaultValue] : defaults.items())
      if (defaultValue.is_number()) phone.set(key, extreme);
    phone.present({{"title", "Title"}, {"message", "Message"}});
    phone.wait(2);
    phone.windows();
    EXPECT_FALSE(phone.picture().empty());
  }
}

struct BadgeCase {
  int setting;
  bool shown;
  bool icon;
};

class BadgeSetting : public testing::TestWithParam<BadgeCase> {};

TEST_P(BadgeSetting, SelectsGlyphOrIcon) {
  test::Setup setup;
  setup.settings = {{"appIconPfp", GetParam().setting}};
  Phone phone(setup);
  const int controller = phone.present({{"title", "T"}});
  phone.wait(1);
  const Json badge = phone.view(controller, "_appDetailImage");
  EXPECT_EQ(!badge.is_null(), GetParam().shown);
  // The width of the badge shows whether it contains a glyph or an icon, because a glyph is larger.
  if (GetParam().shown) {
    EXPECT_EQ(badge.at("frame").at(2), GetParam().icon ? 20 : 36);
  }
}

INSTANTIATE_TEST_SUITE_P(Values, BadgeSetting,
                         testing::Values(BadgeCase{-1, false, false}, BadgeCase{0, false, false},
                                         BadgeCase{1, true, false}, BadgeCase{2, true, true},
                                         BadgeCase{3, true, false}));

TEST(Settings, TimeToDismissOfZeroMeansImmediately) {
  test::Setup setup;
  setup.settings = {{"timeToDismiss", 0}};
  Phone phone(setup);
  const int controller = phone.present({{"title", "T"}});
  phone.wait(0.05);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

// A setting, a value other than its default, and a notification whose banner looks different with this value.
struct Effect {
  const char* key;
  Json value;
  Json notification;
  std::map<std::string, Json> otherSettings = {};
};

void PrintTo(const Effect& effect, std::ostream* stream) { *stream << effect.key; }

class SettingEffect : public testing::TestWithParam<Effect> {};

std::string pictureWith(Phone& phone, const Json& notification) {
  phone.present(notification);
  phone.wait(1);
  return phone.picture();
}

TEST_P(SettingEffect, ChangesThePicture) {
  test::Setup setup;
  setup.options.time = 1767303660;
  setup.settings = GetParam().otherSettings;
  Phone phone(setup);
  const std::string before = pictureWith(phone, GetParam().notification);
  phone.run({{"do", "lock"}});
  phone.wait(2);
  phone.set(GetParam().key, GetParam().value);
  EXPECT_NE(before, pictureWith(phone, GetParam().notification));
}

const Json longMessage = {{"title", "Anna Weber"}, {"message", "One\nTwo\nThree\nFour"}};
const Json alarmWithoutText = {{"title", "Alarm"}};

INSTANTIATE_TEST_SUITE_P(
    Visible, SettingEffect,
    testing::Values(Effect{"backgroundBlur", false, longMessage}, Effect{"24_h_clock", false, longMessage},
                    Effect{"statusbar", false, longMessage}, Effect{"enableGrabber", false, longMessage},
                    Effect{"hide_unless_expanded", true, longMessage}, Effect{"tinyBanner", true, longMessage},
                    Effect{"tinyBannerNoText", true, alarmWithoutText}, Effect{"maxLineCount", 3, longMessage},
                    Effect{"containerCornerRadius", 5, longMessage}, Effect{"appCornerRadius", 4, longMessage},
                    Effect{"appSize", 60, longMessage}, Effect{"containerColor", 3, longMessage},
                    Effect{"textAlignment", 3, longMessage}, Effect{"topOffset", 40, longMessage},
                    Effect{"headerFontSize", 22, longMessage}, Effect{"textFontSize", 20, longMessage},
                    Effect{"statusbarFontSize", 11, longMessage},
                    Effect{"tinyBannerFontSize", 20, longMessage, {{"tinyBanner", true}}}));

TEST(SettingEffect, ButtonsExistOnlyIfTheSettingIsOn) {
  Phone phone;
  EXPECT_TRUE(phone.view(phone.present({{"title", "T"}}), "_buttonStackView").is_null());
  phone.run({{"do", "lock"}});
  phone.set("showButtons", true);
  EXPECT_FALSE(phone.view(phone.present({{"title", "T"}}), "_buttonStackView").is_null());
}

TEST(SettingEffect, BoldButtonsHaveBoldTitles) {
  test::Setup setup;
  setup.settings = {{"showButtons", true}};
  Phone phone(setup);
  const auto titleWeight = [&phone] {
    const Json button = phone.view(phone.present({{"title", "T"}}), "_clearButton");
    return test::firstNode(Json::array({button}), "text", "Clear").at("font").at("weight").get<std::string>();
  };
  EXPECT_EQ(titleWeight(), "regular");
  phone.run({{"do", "lock"}});
  phone.set("boldButtons", true);
  EXPECT_EQ(titleWeight(), "bold");
}

TEST(SettingEffect, TimeToDismissDelaysTheAutomaticDismissal) {
  test::Setup setup;
  setup.settings = {{"timeToDismiss", 2}};
  Phone phone(setup);
  const int controller = phone.present({{"title", "T"}});
  phone.wait(1.95);
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
  phone.wait(0.1);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

}  // namespace
