#include <gtest/gtest.h>
#include <stdlib.h>

#include <cmath>
#include <fstream>
#include <set>

#include "simulator/drawing/image.hpp"
#include "tests/library/controllers.hpp"
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

// The parts of a banner that the tests compare: views, and the lower left corner.
constexpr const char* corner = "corner";
constexpr const char* parts[] = {"_clockLabel", "_nowLabel",    "_appIV", "headerLabel",
                                 "bodyLabel",   "_grabberView", corner};

using Parts = std::set<std::string>;

// A setting, a value other than its default, and a notification. `changedParts` are the parts of its banner that look
// different with this value. All other parts look the same.
struct Effect {
  const char* key;
  Json value;
  Json notification;
  Parts changedParts;
  std::map<std::string, Json> otherSettings = {};
};

void PrintTo(const Effect& effect, std::ostream* stream) { *stream << effect.key; }

// A banner on the screen.
struct Appearance {
  std::shared_ptr<const drawing::Image> picture;
  // The frames of the parts. A part that the banner does not have has no frame.
  std::map<std::string, Json> frames;
};

// The pixels in the frame, from the picture's top left corner.
std::vector<std::uint32_t> pixelsIn(const drawing::Image& picture, const Json& frame) {
  const auto pixel = [&](std::size_t index) { return static_cast<int>(std::lround(frame[index].get<double>())); };
  std::vector<std::uint32_t> pixels;
  for (int y = pixel(1); y < pixel(1) + pixel(3); ++y)
    for (int x = pixel(0); x < pixel(0) + pixel(2); ++x) pixels.push_back(picture.pixel(x, y));
  return pixels;
}

Parts differingParts(const Appearance& first, const Appearance& second) {
  Parts differing;
  for (const char* part : parts) {
    const Json& frame = first.frames.at(part);
    if (frame != second.frames.at(part) ||
        (!frame.is_null() && pixelsIn(*first.picture, frame) != pixelsIn(*second.picture, frame)))
      differing.insert(part);
  }
  return differing;
}

class SettingEffect : public testing::TestWithParam<Effect> {
 protected:
  SettingEffect() : phone_(setup()) {}

  // Presents the notification, records the appearance of its banner, and dismisses the banner.
  Appearance presentedBanner() {
    const int controller = phone_.present(GetParam().notification);
    phone_.wait(1);
    Appearance appearance;
    for (const char* part : parts) appearance.frames[part] = frameOf(controller, part);
    const std::string path = (phone_.root() / "picture.png").string();
    phone_.run({{"do", "screenshot"}, {"path", path}, {"scale", 1}});
    appearance.picture = drawing::loadImage(path);
    test::postCommand({{"command", "dismissnoani"}});
    phone_.wait(1);
    return appearance;
  }

  Phone& phone() { return phone_; }

 private:
  // The banners are black, because black banners are opaque. Other banners show the blurred background, whose pixels
  // depend on the size of the banner.
  static test::Setup setup() {
    test::Setup setup;
    setup.options.time = 1767303660;
    setup.settings = GetParam().otherSettings;
    setup.settings.try_emplace("containerColor", 3);
    return setup;
  }

  // The top corners of a banner are above the screen.
  Json frameOf(int controller, const std::string& part) {
    const Json view = part == corner ? phone_.banner(controller) : phone_.view(controller, part);
    if (view.is_null()) return nullptr;
    Json frame = view.at("frame");
    if (part != corner) return frame;
    constexpr double size = 12;
    const double bottom = frame[1].get<double>() + frame[3].get<double>();
    return {frame[0], bottom - size, size, size};
  }

  Phone phone_;
};

TEST_P(SettingEffect, IsVisibleOnlyInTheExpectedParts) {
  const Appearance before = presentedBanner();
  ASSERT_EQ(differingParts(before, presentedBanner()), Parts{}) << "the setting has not changed yet";
  phone().set(GetParam().key, GetParam().value);
  EXPECT_EQ(differingParts(before, presentedBanner()), GetParam().changedParts);
}

const Json longMessage = {{"title", "Anna Weber"}, {"message", "One\nTwo\nThree\nFour"}};
const Json shortMessage = {{"title", "Anna Weber"}, {"message", "One"}};
const Json alarmWithoutText = {{"title", "Alarm"}};
const Parts everyPart(std::begin(parts), std::end(parts));
const Parts statusLine = {"_clockLabel", "_nowLabel"};
const Parts texts = {"headerLabel", "bodyLabel"};
const Parts bottom = {"_grabberView", corner};
const Parts belowStatusLine = {"_appIV", "headerLabel", "bodyLabel", "_grabberView", corner};
const std::map<std::string, Json> translucent = {{"containerColor", 2}};

INSTANTIATE_TEST_SUITE_P(Visible, SettingEffect,
                         testing::Values(Effect{"backgroundBlur", false, longMessage, everyPart, translucent},
                                         Effect{"24_h_clock", false, longMessage, {"_clockLabel"}},
                                         Effect{"statusbar", false, longMessage, statusLine},
                                         Effect{"enableGrabber", false, longMessage, bottom},
                                         Effect{"hide_unless_expanded", true, shortMessage, texts},
                                         Effect{"tinyBanner", true, longMessage, belowStatusLine},
                                         Effect{"tinyBannerNoText", true, alarmWithoutText, belowStatusLine},
                                         Effect{"maxLineCount", 3, longMessage, {"bodyLabel", "_grabberView", corner}},
                                         Effect{"containerCornerRadius", 5, longMessage, {corner}},
                                         Effect{"appCornerRadius", 4, longMessage, {"_appIV"}},
                                         Effect{"appSize", 60, longMessage, belowStatusLine},
                                         Effect{"containerColor", 2, longMessage, everyPart},
                                         Effect{"textAlignment", 3, longMessage, texts},
                                         Effect{"topOffset", 40, longMessage, belowStatusLine},
                                         Effect{"headerFontSize", 16, shortMessage, texts},
                                         Effect{"textFontSize", 14, shortMessage, {"bodyLabel"}},
                                         Effect{"statusbarFontSize", 11, longMessage, statusLine},
                                         Effect{"tinyBannerFontSize",
                                                17,
                                                shortMessage,
                                                {"headerLabel", "bodyLabel", "_grabberView", corner},
                                                {{"tinyBanner", true}}}));

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
