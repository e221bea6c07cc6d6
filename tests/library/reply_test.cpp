#include <gtest/gtest.h>

#include "simulator/uikit/views/view_record.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::containerOf;
using test::Json;
using test::Phone;

constexpr double oneMillisecond = 0.001;
const std::map<std::string, Json> withButtons = {{"showButtons", true}};

// Presents a notification whose application has a reply action, and expands its banner.
int presentExpanded(Phone& phone, const Json& fields = Json::object()) {
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

std::vector<std::string> executedActions(Phone& phone) {
  std::vector<std::string> found;
  for (const Json& event : phone.log())
    if (event.at("event") == "action") found.push_back(event.at("identifier"));
  return found;
}

void tapLabel(Phone& phone, const char* label) { phone.run({{"do", "tap"}, {"label", label}}); }
void type(Phone& phone, const char* text) { phone.run({{"do", "type"}, {"text", text}}); }
void key(Phone& phone, const char* name) { phone.run({{"do", "key"}, {"name", name}}); }

UIView* backdrop(int controller) {
  return static_cast<UIView*>(containerOf(controller)->superview()->subviews()->objectAtIndex(0));
}

// The opacity on screen, which differs from the alpha during an animation.
double visibleAlpha(const UIView* view) { return uikit::record(view).layer.opacity.shown(); }

TEST(ReplyField, ReplacesTheButtonsIn150Milliseconds) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentExpanded(phone);
  tapLabel(phone, "Reply");
  EXPECT_FALSE(phone.view(controller, "reply").at("hidden"));
  EXPECT_EQ(phone.view(controller, "_buttonStackView").at("alpha"), 0);
  phone.wait(0.15 - oneMillisecond);
  EXPECT_FALSE(containerOf(controller)->reply()->isFirstResponder());
  EXPECT_FALSE(phone.view(controller, "_clearButton").at("hidden"));
  phone.wait(2 * oneMillisecond);
  EXPECT_TRUE(containerOf(controller)->reply()->isFirstResponder());
  for (const char* button : {"_closeButton", "_clearButton", "_replyButton"})
    EXPECT_TRUE(phone.view(controller, button).at("hidden")) << button;
}

TEST(ReplyField, KeepsTheButtonsHiddenWhileItIsOpen) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentExpanded(phone);
  tapLabel(phone, "Reply");
  phone.wait(1);
  containerOf(controller)->setButtonsAlpha(1);
  EXPECT_TRUE(phone.view(controller, "_closeButton").at("hidden"));
  EXPECT_EQ(phone.view(controller, "_buttonStackView").at("alpha"), 0);
}

TEST(ReplyField, StaysClosedWhenItsAnimationIsInterrupted) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentExpanded(phone);
  tapLabel(phone, "Reply");
  const auto banner = objc::retain(containerOf(controller));
  phone.wait(0.05);
  phone.run({{"do", "lock"}});
  phone.wait(1);
  EXPECT_FALSE(banner->reply()->isFirstResponder());
  banner->setButtonsAlpha(0.5);
  EXPECT_EQ(static_cast<UIView*>(banner->reply())->alpha(), 1);
}

TEST(ReplyField, MakesTheBannerWindowKey) {
  Phone phone;
  const int controller = presentExpanded(phone);
  EXPECT_EQ(UIApplication::sharedApplication()->keyWindow(), containerOf(controller)->window());
}

double bottomOf(const Json& view) { return view.at("frame")[1].get<double>() + view.at("frame")[3].get<double>(); }

TEST(ReplyField, StaysAboveTheKeyboardIfTheTextIsLong) {
  test::Setup setup;
  setup.options.device = "iphone-se";
  Phone phone(setup);
  std::string lines = "1";
  for (int line = 2; line <= 15; ++line) lines += "\n" + std::to_string(line);
  const int controller = presentExpanded(phone, {{"subtitle", "Group"}, {"message", lines}});
  const Json keyboard = test::firstNode(phone.windows(), "class", "UIRemoteKeyboardWindow");
  const double keyboardTop = keyboard.at("frame")[1];
  EXPECT_LE(bottomOf(phone.view(controller, "reply")), keyboardTop);
  EXPECT_LE(bottomOf(phone.banner(controller)), keyboardTop);
  const Json body = phone.view(controller, "bodyLabel");
  EXPECT_EQ(body.at("lines"), 15);
  EXPECT_GT(body.at("frame")[3], 12 * 15);
  EXPECT_EQ(phone.view(controller, "headerLabel").at("frame")[3], 18);
  EXPECT_EQ(phone.view(controller, "subHeaderLabel").at("frame")[3], 18);
  // A second drag leaves the banner above the keyboard.
  phone.run({{"do", "drag"}, {"by", {0, 50}}});
  phone.wait(1);
  EXPECT_LE(bottomOf(phone.banner(controller)), keyboardTop);
}

TEST(ReplyField, IsNotMovedByTheKeyboardIfTheTextIsShort) {
  Phone phone;
  const int controller = presentExpanded(phone);
  ASSERT_TRUE(containerOf(controller)->reply()->isFirstResponder());
  constexpr double expandedHeight = 63;
  EXPECT_DOUBLE_EQ(bottomOf(phone.banner(controller)), bottomOf(phone.view(controller, "_appIV")) + expandedHeight);
}

TEST(ReplyField, SendsTheTypedTextOnReturn) {
  Phone phone;
  const int controller = presentExpanded(phone);
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

TEST(ReplyField, DismissesOnReturnIfItIsEmptyOrOneSpace) {
  Phone phone;
  for (const char* text : {"", " "}) {
    const int controller = presentExpanded(phone);
    type(phone, text);
    key(phone, "return");
    EXPECT_EQ(executedActions(phone), std::vector<std::string>{}) << "'" << text << "'";
    EXPECT_TRUE(phone.state(controller).at("isDismissing"));
    phone.wait(2);
  }
}

TEST(ReplyField, SendsTwoSpaces) {
  Phone phone;
  presentExpanded(phone);
  type(phone, "  ");
  key(phone, "return");
  EXPECT_EQ(executedActions(phone)[0], "reply");
}

TEST(ReplyField, IsEnabledOnlyIfAReplyIsPossible) {
  Phone phone;
  for (const auto& [section, canReply] : {std::pair{"com.apple.mobilemail", false}, {"com.apple.MobileSMS", true}}) {
    BrimTextField* field = containerOf(phone.present({{"section", section}}))->reply();
    EXPECT_EQ((objc::send<bool, "isEnabled">(field)), canReply) << section;
    EXPECT_EQ((objc::send<bool, "isUserInteractionEnabled">(field)), canReply) << section;
  }
}

TEST(ReplyField, DoesNotOpenForAnAlarm) {
  Phone phone;
  const int controller = presentExpanded(phone, {{"section", "com.apple.mobiletimer"}, {"close", true}});
  containerOf(controller)->replyButtonPressed(nullptr);
  phone.wait(1);
  EXPECT_TRUE(static_cast<UIView*>(containerOf(controller)->reply())->isHidden());
  EXPECT_FALSE(containerOf(controller)->reply()->isFirstResponder());
}

TEST(Backdrop, FadesFor300Milliseconds) {
  Phone phone;
  const int controller = presentExpanded(phone);
  const UIView* blur = backdrop(controller);
  EXPECT_FALSE(blur->isHidden());
  EXPECT_DOUBLE_EQ(visibleAlpha(blur), 1);
  containerOf(controller)->setOverlayWithAnimation(0);
  EXPECT_DOUBLE_EQ(blur->alpha(), 0);
  phone.wait(0.3 - oneMillisecond);
  EXPECT_GT(visibleAlpha(blur), 0);
  EXPECT_FALSE(blur->isHidden());
  phone.wait(2 * oneMillisecond);
  EXPECT_DOUBLE_EQ(visibleAlpha(blur), 0);
  EXPECT_TRUE(blur->isHidden());
}

TEST(Backdrop, TapDiscardsTheTextAndDismisses) {
  Phone phone;
  const int controller = presentExpanded(phone);
  type(phone, "Not this");
  phone.run({{"do", "tap"}, {"at", {187, 400}}});
  EXPECT_EQ(phone.view(controller, "reply").at("text"), "");
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  phone.wait(2);
  EXPECT_EQ(executedActions(phone), std::vector<std::string>{});
  EXPECT_TRUE(phone.state(controller).at("dismissed"));
}

TEST(Backdrop, FadesOutWithTheBanner) {
  Phone phone;
  const int controller = presentExpanded(phone);
  const auto blur = objc::retain(backdrop(controller));
  test::postCommand({{"command", "dismiss"}});
  phone.wait(0.31);
  EXPECT_TRUE(blur->isHidden());
}

TEST(Backdrop, IsHiddenWithoutBlur) {
  Phone phone({.options = {}, .settings = {{"backgroundBlur", false}}});
  const int controller = presentExpanded(phone);
  ASSERT_TRUE(containerOf(controller)->reply()->isFirstResponder());
  EXPECT_TRUE(backdrop(controller)->isHidden());
  EXPECT_DOUBLE_EQ(backdrop(controller)->alpha(), 0);
}

TEST(ButtonRow, CloseDismissesWithoutAnAction) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentExpanded(phone);
  tapLabel(phone, "Close");
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_EQ(executedActions(phone), std::vector<std::string>{});
}

TEST(ButtonRow, ClearExecutesTheClearAction) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentExpanded(phone);
  tapLabel(phone, "Clear");
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_EQ(executedActions(phone), std::vector<std::string>{"com.apple.UNNotificationDismissActionIdentifier"});
}

TEST(ButtonRow, OrderIsCloseClearReply) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentExpanded(phone);
  const auto left = [&](const char* name) { return phone.view(controller, name).at("frame")[0].get<double>(); };
  EXPECT_LT(left("_closeButton"), left("_clearButton"));
  EXPECT_LT(left("_clearButton"), left("_replyButton"));
  const Json close = phone.view(controller, "_closeButton").at("frame");
  EXPECT_EQ(close[2], phone.view(controller, "_replyButton").at("frame")[2]);
  EXPECT_EQ(close[3], 36);
}

TEST(ButtonRow, OpenIsDisabledIfNoReplyIsPossible) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentExpanded(phone, {{"actions", Json::array()}});
  const Json open = phone.view(controller, "_replyButton");
  EXPECT_FALSE(open.at("enabled"));
  EXPECT_FALSE(open.at("interactive"));
  const Json& frame = open.at("frame");
  const double x = frame[0].get<double>() + frame[2].get<double>() / 2;
  phone.run({{"do", "tap"}, {"at", {x, frame[1].get<double>() + 18}}});
  phone.wait(0.5);
  // The reply field would have replaced the buttons.
  EXPECT_EQ(phone.view(controller, "_buttonStackView").at("alpha"), 1);
}

TEST(ButtonRow, HasOnlyStopForAnAlarmWithoutSnooze) {
  Phone phone;
  const int controller =
      presentExpanded(phone, {{"section", "com.apple.mobiletimer"}, {"close", true}, {"actions", Json::array()}});
  EXPECT_TRUE(phone.view(controller, "_snoozeButton").is_null());
  EXPECT_FALSE(phone.view(controller, "_stopAlarmButton").at("hidden"));
  containerOf(controller)->setButtonsAlpha(0);
  EXPECT_TRUE(phone.view(controller, "_stopAlarmButton").at("hidden"));
}

TEST(Buttons, HaveNoEffectWithoutADelegate) {
  Phone phone({.options = {}, .settings = withButtons});
  const int controller = presentExpanded(phone);
  containerOf(controller)->setDelegate(nullptr);
  tapLabel(phone, "Close");
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

}  // namespace
