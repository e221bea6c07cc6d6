// Tests of long looks with more content than fits on the screen.
#include "tests/springboard/long_look_fixture.hpp"

namespace test {

namespace {

// A phone with the smallest screen.
class CrowdedLongLook : public LongLook {
 protected:
  CrowdedLongLook() : LongLook({.device = "iphone-se"}) {}

  static Json actions(int count, bool takesText = false) {
    Json all = Json::array();
    for (int number = 1; number <= count; ++number)
      all.push_back({{"key", "a"}, {"identifier", std::to_string(number)}, {"textInput", takesText}});
    return all;
  }
  static std::string lines(int count) {
    std::string text = "line";
    for (int line = 1; line < count; ++line) text += "\nline";
    return text;
  }
};

TEST_F(CrowdedLongLook, ShowsOnlyActionRowsThatFitCompletely) {
  open({{"message", lines(40)}, {"actions", actions(20)}});
  const Json rows = view("UIInterfaceActionGroupView");
  EXPECT_GT(rows.at("children").size(), 3U);
  EXPECT_EQ(rows.at("frame")[3], 54 * rows.at("children").size());
  EXPECT_GE(top(card()), 20);
  EXPECT_EQ(top(rows), bottom(card()) + 8);
  EXPECT_LE(bottom(rows), 568 - 8);
  EXPECT_TRUE(hasText(rows, "1"));
  EXPECT_FALSE(hasText(rows, "20"));
}

TEST_F(CrowdedLongLook, ScrollsToTheEndOfItsText) {
  open({{"title", "Title"}, {"message", lines(40)}});
  const auto body = [this] { return PlainPhone::find(Json::array({card()}), "text", lines(40)); };
  const auto scroll = [this](double distance) {
    phone.run("drag", {{"at", {160, 300}}, {"by", {0, distance}}});
    phone.wait(1);
  };
  const Json cardFrame = card().at("frame");
  const double start = top(body());
  EXPECT_GT(body().at("lines"), 0);
  scroll(-50);
  EXPECT_DOUBLE_EQ(top(body()), start - 50);
  EXPECT_EQ(body().at("lines"), 0);
  for (int count = 0; count < 5; ++count) scroll(-250);
  EXPECT_DOUBLE_EQ(bottom(body()), bottom(card()) - 14);
  EXPECT_EQ(card().at("frame"), cardFrame);
  for (int count = 0; count < 5; ++count) scroll(250);
  EXPECT_DOUBLE_EQ(top(body()), start);
  EXPECT_TRUE(isOpen());
}

TEST_F(CrowdedLongLook, DoesNotScrollIfItsTextFits) {
  open({{"message", lines(3)}});
  const Json before = card();
  phone.run("drag", {{"at", {160, 100}}, {"by", {0, -50}}, {"end", "hold"}});
  EXPECT_EQ(card(), before);
}

TEST_F(CrowdedLongLook, LongTitleLeavesSpaceForTheActions) {
  open({{"title", lines(40)}, {"subtitle", lines(40)}, {"actions", actions(4)}});
  const Json rows = view("UIInterfaceActionGroupView");
  EXPECT_EQ(rows.at("children").size(), 4U);
  EXPECT_EQ(top(rows), bottom(card()) + 8);
  EXPECT_LE(bottom(rows), 568 - 8);
}

TEST_F(CrowdedLongLook, LongTitleLeavesSpaceForTheReplyField) {
  open({{"title", lines(40)}, {"subtitle", lines(40)}, {"message", lines(40)}, {"actions", actions(1, true)}});
  phone.run("tap", {{"label", "1"}});
  phone.wait(1);
  EXPECT_GE(top(card()), 20);
  EXPECT_GE(top(view("NCNotificationReplyBar")), bottom(card()));
  EXPECT_LE(bottom(view("NCNotificationReplyBar")), top(view("UIRemoteKeyboardWindow")));
}

}  // namespace

}  // namespace test
