// Tests of the parts of a visible banner that change their color when the banner's colors change.
#include <gtest/gtest.h>

#include "platform/ui_button.hpp"
#include "tests/library/laid_out_banner.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::instanceVariable;
using test::LaidOutBanner;
using test::makeBanner;
using test::Phone;

// Red, green, blue and alpha.
using Components = std::array<double, 4>;
constexpr Components white = {1, 1, 1, 1};
constexpr Components black = {0, 0, 0, 1};
constexpr Components faintWhite = {1, 1, 1, 0.1};
constexpr Components faintBlack = {0, 0, 0, 0.1};

Components components(UIColor* color) {
  Components read{};
  color->getRed(&read[0], &read[1], &read[2], &read[3]);
  return read;
}

Components textColor(const LaidOutBanner& laidOut, const char* name) {
  return components(objc::send<UIColor*, "textColor">(instanceVariable<UIView>(laidOut.banner, name)));
}
Components background(const LaidOutBanner& laidOut, const char* name) {
  return components(instanceVariable<UIView>(laidOut.banner, name)->backgroundColor());
}
Components titleColor(const LaidOutBanner& laidOut, const char* name) {
  return components(instanceVariable<UIButton>(laidOut.banner, name)->titleLabel()->textColor());
}

enum class Kind { Message, Alarm };

objc::Ref<BrimContainer> bannerWithEveryPart(Kind kind) {
  auto banner = makeBanner("Anna"_ns, "Sub"_ns, "Hello"_ns);
  banner->setStatusbar(true);
  banner->setEnableGrabber(true);
  banner->setEnableButtons(true);
  banner->setIsAlarm(kind == Kind::Alarm);
  banner->setIsSnoozable(kind == Kind::Alarm);
  banner->setCanReply(kind == Kind::Message);
  return banner;
}

enum class Update { Colors, ColorMode };

void PrintTo(Update update, std::ostream* stream) { *stream << (update == Update::Colors ? "Colors" : "ColorMode"); }

class ColorUpdate : public testing::TestWithParam<Update> {
 protected:
  void makeDark(const LaidOutBanner& laidOut) {
    if (GetParam() == Update::ColorMode) {
      laidOut.banner->updateColorMode(BrimColors::withMode(darkMode));
    } else {
      laidOut.banner->setColorSet(BrimColors::withMode(darkMode));
      laidOut.banner->updateColors();
    }
    phone_.wait(1);
  }

 private:
  Phone phone_;
};

TEST_P(ColorUpdate, ChangesEveryText) {
  const LaidOutBanner laidOut(bannerWithEveryPart(Kind::Message));
  constexpr const char* labels[] = {"_clockLabel", "_nowLabel", "_headerLabel", "_subHeaderLabel", "_bodyLabel"};
  for (const char* label : labels) EXPECT_EQ(textColor(laidOut, label), black) << label;
  makeDark(laidOut);
  for (const char* label : labels) EXPECT_EQ(textColor(laidOut, label), white) << label;
}

TEST_P(ColorUpdate, ChangesBackgroundAndGrabber) {
  const LaidOutBanner laidOut(bannerWithEveryPart(Kind::Message));
  EXPECT_EQ(background(laidOut, "_grabberView"), (Components{0.2, 0.2, 0.2, 0.5}));
  makeDark(laidOut);
  EXPECT_EQ(background(laidOut, "_grabberView"), faintWhite);
  EXPECT_EQ(components(laidOut.banner->backgroundColor()), (Components{0, 0, 0, 0.3}));
}

TEST_P(ColorUpdate, ChangesTheReplyField) {
  const LaidOutBanner laidOut(bannerWithEveryPart(Kind::Message));
  EXPECT_EQ(textColor(laidOut, "_reply"), black);
  EXPECT_EQ(background(laidOut, "_replyBg"), faintBlack);
  makeDark(laidOut);
  EXPECT_EQ(textColor(laidOut, "_reply"), white);
  EXPECT_EQ(background(laidOut, "_replyBg"), faintWhite);
}

TEST_P(ColorUpdate, ChangesTheButtonsOfAMessage) {
  const LaidOutBanner laidOut(bannerWithEveryPart(Kind::Message));
  constexpr const char* buttons[] = {"_closeButton", "_clearButton", "_replyButton"};
  for (const char* button : buttons) EXPECT_EQ(background(laidOut, button), faintBlack) << button;
  EXPECT_EQ(titleColor(laidOut, "_closeButton"), black);
  EXPECT_EQ(titleColor(laidOut, "_clearButton"), (Components{0.75, 0, 0, 1}));
  EXPECT_EQ(titleColor(laidOut, "_replyButton"), black);
  makeDark(laidOut);
  for (const char* button : buttons) EXPECT_EQ(background(laidOut, button), faintWhite) << button;
  EXPECT_EQ(titleColor(laidOut, "_closeButton"), white);
  EXPECT_EQ(titleColor(laidOut, "_clearButton"), (Components{1, 0, 0, 1}));
  EXPECT_EQ(titleColor(laidOut, "_replyButton"), white);
}

TEST_P(ColorUpdate, ChangesTheButtonsOfAnAlarm) {
  const LaidOutBanner laidOut(bannerWithEveryPart(Kind::Alarm));
  EXPECT_EQ(titleColor(laidOut, "_snoozeButton"), black);
  EXPECT_EQ(titleColor(laidOut, "_stopAlarmButton"), (Components{0.75, 0, 0, 1}));
  makeDark(laidOut);
  EXPECT_EQ(titleColor(laidOut, "_snoozeButton"), white);
  EXPECT_EQ(titleColor(laidOut, "_stopAlarmButton"), (Components{1, 0, 0, 1}));
  for (const char* button : {"_snoozeButton", "_stopAlarmButton"})
    EXPECT_EQ(background(laidOut, button), faintWhite) << button;
}

INSTANTIATE_TEST_SUITE_P(Kinds, ColorUpdate, testing::Values(Update::Colors, Update::ColorMode),
                         testing::PrintToStringParamName());

}  // namespace
