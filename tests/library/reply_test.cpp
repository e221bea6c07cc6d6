#include <gtest/gtest.h>

#include "simulator/uikit/views/view_record.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::containerOf;
using test::controllerOf;
using test::Json;
using test::Phone;

constexpr double instant = 0.001;
const std::map<std::string, Json> withButtons = {{"showButtons", true}};

// A banner that can be answered through its application's action, pulled open.
int presentOpen(Phone& phone, const Json& fields = Json::object()) {
  Json all = {{"section", "org.example.chat"},
              {"title", "Anna"},
              {"message", "Hello"},
              {"actions", Json::array({{{"key", "a"}, {"identifier", "reply"}}})}};
  all.update(fields);
  const int controller = phone.present(all);
  phone.wait(1);
  phone.run({{"do", "drag"}, {"by", {0, 200}}});
  phone.wait(1);
  phone.log();
  return controller;
}

std::vector<std::string> actions(Phone& phone) {
  std::vector<std::string> found;
  for (const Json& event : phone.log())
    if (event.at("event") == "action") found.push_back(event.at("identifier"));
  return found;
}

void press(Phone& phone, const char* label) { phone.run({{"do", "tap"}, {"label", label}}); }
void type(Phone& phone, const char* text) { phone.run({{"do", "type"}, {"text", text}}); }
void key(Phone& phone, const char* name) { phone.run({{"do", "key"}, {"name", name}}); }

UIView* backdrop(int controller) {
  return static_cast<UIView*>(containerOf(controller)->superview()->subviews()->objectAtIndex(0));
}

double shownAlpha(const UIView* view) { return uikit::record(view).layer.opacity.shown(); }

TEST(ReplyField, TakesThePlaceOfTheButtonsInThreeTwentiethsOfASecond) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentOpen(phone);
  press(phone, "Reply");
  EXPECT_FALSE(phone.view(controller, "reply").at("hidden"));
  EXPECT_EQ(phone.view(controller, "_buttonStackView").at("alpha"), 0);
  phone.wait(0.15 - instant);
  EXPECT_FALSE(containerOf(controller)->reply()->isFirstResponder());
  EXPECT_FALSE(phone.view(controller, "_clearButton").at("hidden"));
  phone.wait(2 * instant);
  EXPECT_TRUE(containerOf(controller)->reply()->isFirstResponder());
  for (const char* button : {"_closeButton", "_clearButton", "_replyButton"})
    EXPECT_TRUE(phone.view(controller, button).at("hidden")) << button;
}

TEST(ReplyField, KeepsTheButtonsAwayOnceItIsOpen) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentOpen(phone);
  press(phone, "Reply");
  phone.wait(1);
  containerOf(controller)->setButtonsAlpha(1);
  EXPECT_TRUE(phone.view(controller, "_closeButton").at("hidden"));
  EXPECT_EQ(phone.view(controller, "_buttonStackView").at("alpha"), 0);
}

TEST(ReplyField, StaysClosedWhenItsAnimationIsInterrupted) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentOpen(phone);
  press(phone, "Reply");
  const auto held = objc::retain(containerOf(controller));
  phone.wait(0.05);
  phone.run({{"do", "lock"}});
  phone.wait(1);
  EXPECT_FALSE(held->reply()->isFirstResponder());
  held->setButtonsAlpha(0.5);
  EXPECT_EQ(static_cast<UIView*>(held->reply())->alpha(), 1);
}

TEST(ReplyField, MakesTheBannersWindowKey) {
  Phone phone;
  const int controller = presentOpen(phone);
  EXPECT_EQ(UIApplication::sharedApplication()->keyWindow(), containerOf(controller)->window());
}

TEST(ReplyField, SendsWhatWasTypedOnReturn) {
  Phone phone;
  const int controller = presentOpen(phone);
  type(phone, "Yesss");
  key(phone, "backspace");
  key(phone, "backspace");
  key(phone, "return");
  const Json events = phone.log();
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events[0].at("identifier"), "reply");
  EXPECT_EQ(events[0].at("parameters"), Json({{"UIUserNotificationActionResponseTypedTextKey", "Yes"}}));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(ReplyField, DismissesOnReturnWhenItIsEmptyOrHoldsOneBlank) {
  Phone phone;
  for (const char* text : {"", " "}) {
    const int controller = presentOpen(phone);
    type(phone, text);
    key(phone, "return");
    EXPECT_EQ(actions(phone), std::vector<std::string>{}) << "'" << text << "'";
    EXPECT_TRUE(phone.state(controller).at("isDismissing"));
    phone.wait(2);
  }
}

TEST(ReplyField, SendsTwoBlanks) {
  Phone phone;
  presentOpen(phone);
  type(phone, "  ");
  key(phone, "return");
  EXPECT_EQ(actions(phone)[0], "reply");
}

TEST(ReplyField, TakesTouchesOnlyWhereOneCanAnswer) {
  Phone phone;
  for (const auto& [section, canAnswer] : {std::pair{"com.apple.mobilemail", false}, {"com.apple.MobileSMS", true}}) {
    BrimTextField* field = containerOf(phone.present({{"section", section}}))->reply();
    EXPECT_EQ((objc::send<bool, "isEnabled">(field)), canAnswer) << section;
    EXPECT_EQ((objc::send<bool, "isUserInteractionEnabled">(field)), canAnswer) << section;
  }
}

TEST(ReplyField, IsNotThereForAnAlarm) {
  Phone phone;
  const int controller = presentOpen(phone, {{"section", "com.apple.mobiletimer"}, {"close", true}});
  containerOf(controller)->replyButtonPressed(nullptr);
  phone.wait(1);
  EXPECT_TRUE(static_cast<UIView*>(containerOf(controller)->reply())->isHidden());
  EXPECT_FALSE(containerOf(controller)->reply()->isFirstResponder());
}

TEST(Backdrop, FadesInWithinThreeTenthsOfASecond) {
  Phone phone;
  const int controller = presentOpen(phone);
  const UIView* blur = backdrop(controller);
  EXPECT_FALSE(blur->isHidden());
  EXPECT_DOUBLE_EQ(shownAlpha(blur), 1);
  containerOf(controller)->setOverlayWithAnimation(0);
  EXPECT_DOUBLE_EQ(blur->alpha(), 0);
  phone.wait(0.3 - instant);
  EXPECT_GT(shownAlpha(blur), 0);
  EXPECT_FALSE(blur->isHidden());
  phone.wait(2 * instant);
  EXPECT_DOUBLE_EQ(shownAlpha(blur), 0);
  EXPECT_TRUE(blur->isHidden());
}

TEST(Backdrop, ATapForgetsTheTextAndDismisses) {
  Phone phone;
  const int controller = presentOpen(phone);
  type(phone, "Not this");
  phone.run({{"do", "tap"}, {"at", {187, 400}}});
  EXPECT_EQ(phone.view(controller, "reply").at("text"), "");
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  phone.wait(2);
  EXPECT_EQ(actions(phone), std::vector<std::string>{});
  EXPECT_TRUE(phone.state(controller).at("dismissed"));
}

TEST(Backdrop, GoesWithTheBanner) {
  Phone phone;
  const int controller = presentOpen(phone);
  const auto blur = objc::retain(backdrop(controller));
  test::command({{"command", "dismiss"}});
  phone.wait(0.31);
  EXPECT_TRUE(blur->isHidden());
}

TEST(Backdrop, IsNotShownWithoutBlur) {
  Phone phone({.options = {}, .settings = {{"backgroundBlur", false}}});
  const int controller = presentOpen(phone);
  ASSERT_TRUE(containerOf(controller)->reply()->isFirstResponder());
  EXPECT_TRUE(backdrop(controller)->isHidden());
  EXPECT_DOUBLE_EQ(backdrop(controller)->alpha(), 0);
}

TEST(ButtonRow, CloseDismissesAndNothingElse) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentOpen(phone);
  press(phone, "Close");
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_EQ(actions(phone), std::vector<std::string>{});
}

TEST(ButtonRow, ClearHandsTheClearActionOver) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentOpen(phone);
  press(phone, "Clear");
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_EQ(actions(phone), std::vector<std::string>{"com.apple.UNNotificationDismissActionIdentifier"});
}

TEST(ButtonRow, ReadsCloseClearReplyFromLeftToRight) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentOpen(phone);
  const auto left = [&](const char* name) { return phone.view(controller, name).at("frame")[0].get<double>(); };
  EXPECT_LT(left("_closeButton"), left("_clearButton"));
  EXPECT_LT(left("_clearButton"), left("_replyButton"));
  const Json close = phone.view(controller, "_closeButton").at("frame");
  EXPECT_EQ(close[2], phone.view(controller, "_replyButton").at("frame")[2]);
  EXPECT_EQ(close[3], 36);
}

TEST(ButtonRow, OpenDoesNotReactWhereNothingCanBeAnswered) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentOpen(phone, {{"actions", Json::array()}});
  const Json open = phone.view(controller, "_replyButton");
  EXPECT_FALSE(open.at("enabled"));
  EXPECT_FALSE(open.at("interactive"));
  controllerOf(controller)->setDismissCalled(false);
  phone.log();
  const Json& frame = open.at("frame");
  const double x = frame[0].get<double>() + frame[2].get<double>() / 2;
  phone.run({{"do", "tap"}, {"at", {x, frame[1].get<double>() + 18}}});
  phone.wait(0.5);
  EXPECT_FALSE(containerOf(controller)->reply()->isFirstResponder());
}

TEST(ButtonRow, OfAnAlarmThatCannotSnoozeIsStopAlone) {
  Phone phone;
  const int controller =
      presentOpen(phone, {{"section", "com.apple.mobiletimer"}, {"close", true}, {"actions", Json::array()}});
  EXPECT_TRUE(phone.view(controller, "_snoozeButton").is_null());
  EXPECT_FALSE(phone.view(controller, "_stopAlarmButton").at("hidden"));
  containerOf(controller)->setButtonsAlpha(0);
  EXPECT_TRUE(phone.view(controller, "_stopAlarmButton").at("hidden"));
}

TEST(Buttons, GoToADelegateThatIsThere) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentOpen(phone);
  containerOf(controller)->setDelegate(nullptr);
  press(phone, "Close");
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

}  // namespace
