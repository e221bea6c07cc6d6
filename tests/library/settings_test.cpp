#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>

#include "tests/library/phone.hpp"
#include "tests/setting_rows.hpp"

namespace {

using test::Json;
using test::Phone;

Json settings(Phone& phone) { return phone.run({{"do", "settings"}}).at("settings"); }

// In registration order.
Json allDefaults() {
  Json values;
  for (const test::SettingRow& row : test::settingRows)
    values[row.key] = row.type == test::SettingType::Bool ? Json(row.standard != 0) : Json(row.standard);
  return values;
}
const Json defaults = allDefaults();

TEST(Settings, AnEmptyDomainGivesTheDefaultsInOrder) {
  Phone phone;
  EXPECT_EQ(settings(phone).dump(), defaults.dump());
}

TEST(Settings, AStoredValueReachesItsVariableAndRemovalBringsTheDefaultBack) {
  Phone phone;
  for (const auto& [key, standard] : defaults.items()) {
    const Json other = standard.is_boolean() ? Json(!standard.get<bool>()) : Json(standard.get<int>() + 7);
    phone.set(key, other);
    EXPECT_EQ(settings(phone).at(key), other) << key;
    phone.set(key, nullptr);
    EXPECT_EQ(settings(phone).at(key), standard) << key;
  }
}

TEST(Settings, ValuesOfAWrongTypeGiveTheDefault) {
  Phone phone;
  for (const Json& wrong : {Json("abc"), Json(""), Json::array({1}), Json({{"a", 1}})}) {
    phone.set("maxLineCount", wrong);
    phone.set("tinyBanner", wrong);
    EXPECT_EQ(settings(phone).at("maxLineCount"), 2) << wrong;
    EXPECT_EQ(settings(phone).at("tinyBanner"), false) << wrong;
  }
}

TEST(Settings, StringsOfTheDefaultsToolAreRead) {
  Phone phone;
  phone.set("maxLineCount", "7");
  phone.set("tinyBanner", "YES");
  EXPECT_EQ(settings(phone).at("maxLineCount"), 7);
  EXPECT_EQ(settings(phone).at("tinyBanner"), true);
}

TEST(Settings, ExtremesDoNotEndTheProcess) {
  Phone phone;
  for (const std::int64_t extreme : {INT64_MAX, INT64_MIN, std::int64_t{-1}, std::int64_t{0}, std::int64_t{100'000}}) {
    for (const auto& [key, standard] : defaults.items())
      if (standard.is_number()) phone.set(key, extreme);
    phone.present({{"title", "Title"}, {"message", "Message"}});
    phone.wait(2);
    phone.windows();
    EXPECT_FALSE(phone.picture().empty());
  }
}

struct Badge {
  int setting;
  bool shown;
  bool icon;
};

class BadgeSetting : public testing::TestWithParam<Badge> {};

TEST_P(BadgeSetting, ChoosesGlyphOrIcon) {
  test::Setup setup;
  setup.settings = {{"appIconPfp", GetParam().setting}};
  Phone phone(setup);
  const int controller = phone.present({{"title", "T"}});
  phone.wait(1);
  const Json badge = phone.view(controller, "_appDetailImage");
  EXPECT_EQ(!badge.is_null(), GetParam().shown);
  // A glyph is drawn larger than an icon.
  if (GetParam().shown) {
    EXPECT_EQ(badge.at("frame").at(2), GetParam().icon ? 20 : 36);
  }
}

INSTANTIATE_TEST_SUITE_P(Values, BadgeSetting,
                         testing::Values(Badge{-1, false, false}, Badge{0, false, false}, Badge{1, true, false},
                                         Badge{2, true, true}, Badge{3, true, false}));

TEST(Settings, NoTimeToDismissMeansAtOnce) {
  test::Setup setup;
  setup.settings = {{"timeToDismiss", 0}};
  Phone phone(setup);
  const int controller = phone.present({{"title", "T"}});
  phone.wait(0.05);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

// Each setting that changes what is seen, with a value that shows it.
struct Effect {
  const char* key;
  Json value;
  Json notification;
  std::map<std::string, Json> background = {};
};

void PrintTo(const Effect& effect, std::ostream* stream) { *stream << effect.key; }

class SettingEffect : public testing::TestWithParam<Effect> {};

std::string pictureWith(Phone& phone, const Json& notification) {
  phone.present(notification);
  phone.wait(1);
  return phone.picture();
}

TEST_P(SettingEffect, IsSeenInThePicture) {
  test::Setup setup;
  setup.options.time = 1767303660;
  setup.settings = GetParam().background;
  Phone phone(setup);
  const std::string before = pictureWith(phone, GetParam().notification);
  phone.run({{"do", "lock"}});
  phone.wait(2);
  phone.set(GetParam().key, GetParam().value);
  EXPECT_NE(before, pictureWith(phone, GetParam().notification));
}

const Json anna = {{"title", "Anna Weber"}, {"message", "One\nTwo\nThree\nFour"}};
const Json alarmWithoutText = {{"title", "Alarm"}};

INSTANTIATE_TEST_SUITE_P(Visible, SettingEffect,
                         testing::Values(Effect{"backgroundBlur", false, anna}, Effect{"24_h_clock", false, anna},
                                         Effect{"statusbar", false, anna}, Effect{"enableGrabber", false, anna},
                                         Effect{"hide_unless_expanded", true, anna}, Effect{"tinyBanner", true, anna},
                                         Effect{"tinyBannerNoText", true, alarmWithoutText},
                                         Effect{"maxLineCount", 3, anna}, Effect{"containerCornerRadius", 5, anna},
                                         Effect{"appCornerRadius", 4, anna}, Effect{"appSize", 60, anna},
                                         Effect{"containerColor", 3, anna}, Effect{"textAlignment", 3, anna},
                                         Effect{"topOffset", 40, anna}, Effect{"headerFontSize", 22, anna},
                                         Effect{"textFontSize", 20, anna}, Effect{"statusbarFontSize", 11, anna},
                                         Effect{"tinyBannerFontSize", 20, anna, {{"tinyBanner", true}}}));

TEST(SettingEffect, ButtonsAreInTheTreeOnlyWhenSwitchedOn) {
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

TEST(SettingEffect, TimeToDismissIsWhenTheBannerGoes) {
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
