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
