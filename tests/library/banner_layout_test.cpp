#include <gtest/gtest.h>

#include "tests/library/banner_layout.hpp"
#include "tests/library/controllers.hpp"

namespace {

using test::bottom;
using test::height;
using test::Json;
using test::left;
using test::Phone;
using test::phoneWith;
using test::right;
using test::sampleMessage;
using test::top;
using test::width;

TEST(Layout, BannerSpansTheNotificationViewAtItsDefaultOffset) {
  Phone phone = phoneWith({});
  const int controller = phone.present(sampleMessage());
  phone.wait(1);
  const Json banner = phone.banner(controller);
  EXPECT_DOUBLE_EQ(top(banner), 44 - 70);
  EXPECT_DOUBLE_EQ(left(banner), 8);
  EXPECT_DOUBLE_EQ(width(banner), 375 - 16);
  EXPECT_DOUBLE_EQ(banner.at("cornerRadius"), 30);
  EXPECT_TRUE(banner.at("continuousCorners"));
}

TEST(Layout, IconIsBelowTheClock) {
  Phone phone = phoneWith({});
  const int controller = phone.present(sampleMessage());
  phone.wait(1);
  const Json banner = phone.banner(controller);
  const Json clock = phone.view(controller, "_clockLabel");
  const Json icon = phone.view(controller, "_appIV");
  EXPECT_DOUBLE_EQ(top(clock), top(banner) + 44);
  EXPECT_DOUBLE_EQ(left(clock), left(banner) + 25);
  EXPECT_DOUBLE_EQ(top(icon), top(clock) + 15 + 15);
  EXPECT_DOUBLE_EQ(left(icon), left(banner) + 15);
  EXPECT_DOUBLE_EQ(width(icon), 40);
  EXPECT_DOUBLE_EQ(height(icon), 40);
}

TEST(Layout, TextsAreStackedBesideTheIcon) {
  Phone phone = phoneWith({});
  const int controller = phone.present({{"title", "Mail"}, {"subtitle", "Subject"}, {"message", "Text"}});
  phone.wait(1);
  const Json icon = phone.view(controller, "_appIV");
  const Json header = phone.view(controller, "headerLabel");
  const Json subHeader = phone.view(controller, "subHeaderLabel");
  const Json body = phone.view(controller, "bodyLabel");
  for (const Json& label : {header, subHeader, body}) {
    EXPECT_DOUBLE_EQ(left(label), right(icon) + 16);
    EXPECT_DOUBLE_EQ(right(label), 375 - 8 - 16);
  }
  EXPECT_DOUBLE_EQ(top(header), top(icon));
  EXPECT_DOUBLE_EQ(top(subHeader), bottom(header));
  EXPECT_DOUBLE_EQ(top(body), bottom(subHeader) + 4);
  EXPECT_EQ(header.at("text"), "Mail");
  EXPECT_EQ(subHeader.at("text"), "Subject");
  EXPECT_EQ(body.at("text"), "Text");
  EXPECT_EQ(header.at("font").at("weight"), "bold");
  EXPECT_EQ(subHeader.at("font").at("weight"), "bold");
  EXPECT_EQ(body.at("font").at("weight"), "regular");
}

TEST(Layout, BottomPaddingIsBelowTheLowestContent) {
  Phone phone = phoneWith({{"appSize", 40}});
  const int shortText = phone.present({{"title", "A"}, {"message", "B"}});
  phone.wait(1);
  EXPECT_DOUBLE_EQ(bottom(phone.banner(shortText)), bottom(phone.view(shortText, "_appIV")) + 22);
}

TEST(Layout, BottomIsBelowTheLastAllowedLineOfALongBody) {
  Phone phone = phoneWith({{"maxLineCount", 4}});
  std::string text;
  for (int word = 0; word < 200; ++word) text += "lorem ";
  const int controller = phone.present({{"title", "A"}, {"message", text}});
  phone.wait(1);
  const Json body = phone.view(controller, "bodyLabel");
  EXPECT_EQ(body.at("measuredLines"), 4);
  EXPECT_DOUBLE_EQ(bottom(phone.banner(controller)), bottom(body) + 22);
}

TEST(Layout, PaddingIsSmallerWithoutAGrabber) {
  Phone phone = phoneWith({{"enableGrabber", false}});
  const int controller = phone.present(sampleMessage());
  phone.wait(1);
  EXPECT_TRUE(phone.view(controller, "_grabberView").is_null());
  EXPECT_DOUBLE_EQ(bottom(phone.banner(controller)), bottom(phone.view(controller, "_appIV")) + 16.67);
}

TEST(Layout, GrabberIsCenteredAtTheBottomEdge) {
  Phone phone = phoneWith({});
  const int controller = phone.present(sampleMessage());
  phone.wait(1);
  const Json banner = phone.banner(controller);
  const Json grabber = phone.view(controller, "_grabberView");
  EXPECT_DOUBLE_EQ(width(grabber), 36);
  EXPECT_DOUBLE_EQ(height(grabber), 5.33);
  EXPECT_DOUBLE_EQ(left(grabber) + width(grabber) / 2, left(banner) + width(banner) / 2);
  EXPECT_DOUBLE_EQ(bottom(grabber), bottom(banner) - 6);
}

TEST(Layout, RightToLeftLanguageMirrorsTheBanner) {
  Phone phone = phoneWith({}, [](runner::Options& options) { options.locale = "ar_EG"; });
  const int controller = phone.present({{"title", "ليلى"}, {"message", "مرحبا"}});
  phone.wait(1);
  const Json banner = phone.banner(controller);
  const Json icon = phone.view(controller, "_appIV");
  EXPECT_DOUBLE_EQ(right(icon), right(banner) - 15);
  EXPECT_DOUBLE_EQ(right(phone.view(controller, "headerLabel")), left(icon) - 16);
  EXPECT_DOUBLE_EQ(right(phone.view(controller, "_clockLabel")), right(banner) - 25);
}

struct RadiusCase {
  bool tiny;
  int appSize;
  int requested;
  int expected;
};

class IconRadius : public testing::TestWithParam<RadiusCase> {};

TEST_P(IconRadius, IsAtMostHalfTheIconSize) {
  const RadiusCase& given = GetParam();
  Phone phone =
      phoneWith({{"tinyBanner", given.tiny}, {"appSize", given.appSize}, {"appCornerRadius", given.requested}});
  const int controller = phone.present(sampleMessage());
  phone.wait(1);
  EXPECT_DOUBLE_EQ(phone.view(controller, "_appIV").at("cornerRadius"), given.expected);
}

INSTANTIATE_TEST_SUITE_P(Sizes, IconRadius,
                         testing::Values(RadiusCase{true, 40, 12, 10}, RadiusCase{true, 80, 12, 10},
                                         RadiusCase{true, 4, 10, 2}, RadiusCase{true, 40, 10, 10},
                                         RadiusCase{false, 45, 30, 22}, RadiusCase{false, 40, 20, 20},
                                         RadiusCase{false, 40, 3, 3}));

std::vector<Json> blurs(const Json& trees) {
  return test::nodes(trees, [](const Json& node) { return node.contains("blur"); });
}

struct BlurCase {
  const char* system;
  int mode;
  int backdrop;
  std::optional<int> background;
};

class BlurStyle : public testing::TestWithParam<BlurCase> {};

TEST_P(BlurStyle, DependsOnSystemVersionAndColorMode) {
  Phone phone = phoneWith({{"containerColor", GetParam().mode}},
                          [](runner::Options& options) { options.systemVersion = GetParam().system; });
  const int controller = phone.present(sampleMessage());
  phone.wait(1);
  EXPECT_EQ(phone.view(controller, "_keyboardBackdrop").at("blur"), GetParam().backdrop);
  const std::vector<Json> inside = blurs(Json::array({phone.banner(controller)}));
  ASSERT_EQ(inside.size(), GetParam().background ? 1u : 0u);
  if (GetParam().background) {
    EXPECT_EQ(inside.front().at("blur"), *GetParam().background);
  }
}

INSTANTIATE_TEST_SUITE_P(Table, BlurStyle,
                         testing::Values(BlurCase{"12.4", 1, 4, 4}, BlurCase{"12.4", 2, 4, 4},
                                         BlurCase{"12.4", 3, 4, std::nullopt}, BlurCase{"13.5", 1, 2, 2},
                                         BlurCase{"13.5", 2, 1, 1}, BlurCase{"13.5", 3, 2, std::nullopt},
                                         BlurCase{"13.5", 7, 4, 4}));

TEST(Layout, KeyboardBackdropIsHiddenAndCoversTheNotificationView) {
  Phone phone = phoneWith({});
  const int controller = phone.present(sampleMessage());
  phone.wait(1);
  const Json backdrop = phone.view(controller, "_keyboardBackdrop");
  EXPECT_TRUE(backdrop.at("hidden"));
  EXPECT_DOUBLE_EQ(backdrop.at("alpha"), 0);
  EXPECT_DOUBLE_EQ(width(backdrop), 375 - 16);
}

TEST(Layout, StatusLineHasABoldClock) {
  Phone phone = phoneWith({{"statusbarFontSize", 14}});
  const int controller = phone.present(sampleMessage());
  const Json clock = phone.view(controller, "_clockLabel").at("font");
  const Json now = phone.view(controller, "_nowLabel").at("font");
  EXPECT_EQ(clock.at("weight"), "bold");
  EXPECT_EQ(now.at("weight"), "regular");
  EXPECT_EQ(clock.at("size"), 14);
  EXPECT_EQ(now.at("size"), 14);
}

TEST(Layout, EachTextHasItsFontSize) {
  Phone phone = phoneWith({{"headerFontSize", 17}, {"textFontSize", 12}});
  const int controller = phone.present({{"title", "Mail"}, {"subtitle", "Subject"}, {"message", "Text"}});
  EXPECT_EQ(phone.view(controller, "headerLabel").at("font").at("size"), 17);
  EXPECT_EQ(phone.view(controller, "subHeaderLabel").at("font").at("size"), 17);
  EXPECT_EQ(phone.view(controller, "bodyLabel").at("font").at("size"), 12);
}

// The label of the button's title.
Json titleOf(const Json& button) {
  return test::nodes(Json::array({button}), [](const Json& node) { return node.contains("font"); }).back();
}

int presentExpanded(Phone& phone, const Json& fields) {
  const int controller = phone.present(fields);
  phone.wait(1);
  phone.run({{"do", "drag"}, {"by", {0, 200}}});
  phone.wait(1);
  return controller;
}

TEST(ButtonRow, IsEightPointsBelowTheLowestContent) {
  Phone phone = phoneWith({{"showButtons", true}});
  const int oneLine = presentExpanded(phone, sampleMessage());
  EXPECT_DOUBLE_EQ(top(phone.view(oneLine, "_buttonStackView")), bottom(phone.view(oneLine, "_appIV")) + 8);
  phone.run({{"do", "lock"}});
  const int threeLines = presentExpanded(phone, {{"title", "Anna"}, {"message", "One\nTwo\nThree"}});
  ASSERT_GT(bottom(phone.view(threeLines, "bodyLabel")), bottom(phone.view(threeLines, "_appIV")));
  EXPECT_DOUBLE_EQ(top(phone.view(threeLines, "_buttonStackView")), bottom(phone.view(threeLines, "bodyLabel")) + 8);
}

TEST(ButtonRow, ButtonsAreEquallyWideCapsulesWithSpaceBetweenThem) {
  Phone phone = phoneWith({{"showButtons", true}});
  const int controller = presentExpanded(phone, sampleMessage());
  const Json row = phone.view(controller, "_buttonStackView");
  const Json close = phone.view(controller, "_closeButton");
  const Json clear = phone.view(controller, "_clearButton");
  const Json reply = phone.view(controller, "_replyButton");
  EXPECT_DOUBLE_EQ(left(close), left(row));
  EXPECT_DOUBLE_EQ(left(clear), right(close) + 15);
  EXPECT_DOUBLE_EQ(left(reply), right(clear) + 15);
  EXPECT_DOUBLE_EQ(right(reply), right(row));
  EXPECT_DOUBLE_EQ(right(row), right(phone.banner(controller)) - 15);
  for (const Json& button : {close, clear, reply}) {
    EXPECT_DOUBLE_EQ(height(button), 36);
    EXPECT_DOUBLE_EQ(width(button), width(close));
    EXPECT_DOUBLE_EQ(button.at("cornerRadius"), 18);
    EXPECT_TRUE(button.at("continuousCorners"));
    EXPECT_EQ(button.at("background"), Json({0, 0, 0, 0.1}));
    EXPECT_EQ(titleOf(button).at("font").at("size"), 13);
  }
}

TEST(ButtonRow, OnlyTheTitleOfClearIsRed) {
  Phone phone = phoneWith({{"showButtons", true}, {"containerColor", 1}});
  const int controller = presentExpanded(phone, sampleMessage());
  EXPECT_EQ(titleOf(phone.view(controller, "_closeButton")).at("color"), Json({1, 1, 1, 1}));
  EXPECT_EQ(titleOf(phone.view(controller, "_clearButton")).at("color"), Json({1, 0, 0, 1}));
  EXPECT_EQ(titleOf(phone.view(controller, "_replyButton")).at("color"), Json({1, 1, 1, 1}));
}

TEST(ButtonRow, HasSnoozeAndARedStopForAnAlarm) {
  Phone phone = phoneWith({{"containerColor", 1}});
  const Json snoozeAction = {{"key", "snooze"}, {"identifier", "MTAlarmSnoozeAction"}, {"title", "Snooze"}};
  const int controller = presentExpanded(phone, {{"section", "com.apple.mobiletimer"},
                                                 {"title", "Alarm"},
                                                 {"close", true},
                                                 {"actions", Json::array({snoozeAction})}});
  const Json snooze = phone.view(controller, "_snoozeButton");
  const Json stop = phone.view(controller, "_stopAlarmButton");
  EXPECT_EQ(titleOf(snooze).at("text"), "Snooze");
  EXPECT_EQ(titleOf(stop).at("text"), "Stop");
  EXPECT_DOUBLE_EQ(left(stop), right(snooze) + 15);
  EXPECT_EQ(titleOf(snooze).at("color"), Json({1, 1, 1, 1}));
  EXPECT_EQ(titleOf(stop).at("color"), Json({1, 0, 0, 1}));
}

TEST(Layout, ReplyFieldHasItsOwnFontAndReturnKey) {
  Phone phone = phoneWith({});
  const int controller = presentExpanded(phone, sampleMessage());
  const Json field = phone.view(controller, "reply");
  EXPECT_EQ(field.at("font").at("size"), 15);
  EXPECT_EQ(field.at("font").at("weight"), "regular");
  const auto* reply = test::containerOf(controller)->reply();
  EXPECT_EQ((objc::send<UIReturnKeyType, "returnKeyType">(reply)), UIReturnKeyType::Send);
  EXPECT_EQ((objc::send<UIKeyboardType, "keyboardType">(reply)), UIKeyboardType::Default);
  EXPECT_EQ((objc::send<UITextBorderStyle, "borderStyle">(reply)), UITextBorderStyle::None);
}

TEST(Layout, BannerThatCannotReplyHasNoReplyField) {
  Phone phone = phoneWith({{"showButtons", true}});
  const int controller = phone.present({{"section", "com.apple.mobilecal"}, {"title", "Meeting"}, {"message", "Now"}});
  phone.wait(1);
  EXPECT_TRUE(phone.view(controller, "replyBg").is_null());
  EXPECT_TRUE(phone.view(controller, "reply").is_null());
  const Json openButton = phone.view(controller, "_replyButton");
  EXPECT_FALSE(openButton.at("enabled"));
  EXPECT_FALSE(test::firstNode(Json::array({openButton}), "text", "Open").is_null());
}

TEST(Layout, ReplyFieldOccupiesTheButtonRow) {
  Phone phone = phoneWith({{"showButtons", true}});
  const int controller = phone.present(sampleMessage());
  phone.wait(1);
  const Json row = phone.view(controller, "_buttonStackView");
  const Json background = phone.view(controller, "replyBg");
  EXPECT_EQ(row.at("frame"), background.at("frame"));
  EXPECT_DOUBLE_EQ(height(background), 36);
  EXPECT_DOUBLE_EQ(left(background), 8 + 15);
  EXPECT_DOUBLE_EQ(background.at("cornerRadius"), 18);
  EXPECT_DOUBLE_EQ(left(phone.view(controller, "reply")), left(background) + 10);
  EXPECT_TRUE(background.at("hidden"));
  EXPECT_DOUBLE_EQ(row.at("alpha"), 0);
}

}  // namespace
