// Tests of the long look's actions that have a text input.
#include "tests/springboard/long_look_fixture.hpp"

namespace test {

namespace {

class TextInputAction : public LongLook {
 protected:
  int openReply(const std::string& message = "Hello") {
    const int controller = open({{"message", message},
                                 {"actions",
                                  {{{"key", "a"}, {"identifier", "reply"}, {"title", "Reply"}, {"textInput", true}},
                                   {{"key", "a"}, {"identifier", "archive"}, {"title", "Archive"}}}}});
    phone.run("tap", {{"label", "Reply"}});
    phone.wait(1);
    return controller;
  }
  bool hasKeyboard() { return !view("UIRemoteKeyboardWindow").is_null(); }
};

TEST_F(TextInputAction, ReplacesTheActionsWithATextField) {
  openReply();
  EXPECT_TRUE(hasKeyboard());
  EXPECT_TRUE(view("UITextField").at("firstResponder").get<bool>());
  EXPECT_EQ(view("UIInterfaceActionGroupView").at("alpha"), 0);
  EXPECT_EQ(top(view("NCNotificationReplyBar")), bottom(card()) + 8);
  EXPECT_EQ(executedActions(), Identifiers{});
}

TEST_F(TextInputAction, ExecutesTheActionWithTheText) {
  const int controller = openReply();
  phone.run("type", {{"text", "At one!"}});
  phone.run("key", {{"name", "return"}});
  const Json events = phone.log();
  EXPECT_EQ(events[0].at("identifier"), "reply");
  EXPECT_EQ(events[0].at("parameters"), Json({{"UIUserNotificationActionResponseTypedTextKey", "At one!"}}));
  phone.wait(1);
  EXPECT_FALSE(isOpen());
  EXPECT_FALSE(hasKeyboard());
  EXPECT_TRUE(phone.isDismissed(controller));
  EXPECT_EQ(listedCount(), 0U);
}

TEST_F(TextInputAction, IsNotExecutedWithoutText) {
  const int controller = openReply();
  phone.run("key", {{"name", "return"}});
  phone.wait(1);
  EXPECT_EQ(phone.log(), Json::array());
  EXPECT_TRUE(isOpen());
  EXPECT_TRUE(hasKeyboard());
  EXPECT_FALSE(phone.isDismissed(controller));
  phone.run("type", {{"text", "Yes"}});
  phone.run("key", {{"name", "return"}});
  EXPECT_EQ(executedActions(), Identifiers{"reply"});
}

TEST_F(TextInputAction, TapOutsideClosesTheKeyboard) {
  openReply();
  phone.run("type", {{"text", "At o"}});
  phone.run("tap", {{"at", {187, 420}}});
  phone.wait(1);
  EXPECT_EQ(executedActions(), Identifiers{});
  EXPECT_FALSE(isOpen());
  EXPECT_FALSE(hasKeyboard());
  EXPECT_FALSE(phone.answer({{"do", "type"}, {"text", "x"}}).at("ok").get<bool>());
}

TEST_F(TextInputAction, KeepsTheFieldAboveTheKeyboardForALongMessage) {
  std::string body;
  for (int line = 0; line < 100; ++line) body += "line\n";
  openReply(body);
  EXPECT_LE(bottom(view("NCNotificationReplyBar")), top(view("UIRemoteKeyboardWindow")));
  EXPECT_LE(bottom(card()), top(view("NCNotificationReplyBar")));
  EXPECT_GE(top(card()), 44);
}

}  // namespace

}  // namespace test
