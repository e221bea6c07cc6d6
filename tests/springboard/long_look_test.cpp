// Tests of the platform's long look of a banner: opening, content, actions and closing.
#include "tests/springboard/long_look_fixture.hpp"

#include "platform/ui_window.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"
#include "simulator/springboard/long_look/long_look_presenter.hpp"
#include "simulator/uikit/rendering/renderer.hpp"

namespace test {

namespace {

TEST_F(LongLook, ShowsAllTextsOfTheNotification) {
  std::string body = "first";
  for (int line = 0; line < 11; ++line) body += "\nline";
  open({{"title", "Title"}, {"subtitle", "Subtitle"}, {"message", body}});
  const Json shown = card();
  for (const char* text : {"MESSAGES", "now", "Title", "Subtitle"}) EXPECT_TRUE(hasText(shown, text)) << text;
  EXPECT_EQ(PlainPhone::find(Json::array({shown}), "text", body).at("measuredLines"), 12);
}

TEST_F(LongLook, ReplacesTheBannerAndPlacesItsActionsBelow) {
  const int controller = phone.present({{"actions", {{{"key", "a"}, {"identifier", "x"}, {"title", "Archive"}}}}});
  phone.wait(1);
  const Json banner = phone.view(controller, "NCNotificationShortLookView").at("frame");
  phone.run("longlook", {{"controller", controller}});
  phone.wait(1);
  const Json frame = card().at("frame");
  EXPECT_EQ(frame[0], banner[0]);
  EXPECT_EQ(frame[1], banner[1]);
  EXPECT_EQ(frame[2], banner[2]);
  EXPECT_EQ(top(view("UIInterfaceActionGroupView")), bottom(card()) + 8);
  EXPECT_EQ(view("UIInterfaceActionGroupView").at("frame")[2], banner[2]);
}

TEST_F(LongLook, BlursTheWholeScreenBehindIt) {
  open();
  const Json backdrop =
      card().is_null() ? Json() : view("SBNotificationBannerWindow").at("children").back().at("children")[0];
  EXPECT_EQ(backdrop.at("class"), "UIVisualEffectView");
  EXPECT_EQ(backdrop.at("frame"), Json({0, 0, 375, 812}));
  EXPECT_EQ(backdrop.at("alpha"), 1);
}

TEST_F(LongLook, HidesItsBanner) {
  const int controller = open();
  EXPECT_TRUE(phone.view(controller, "NCNotificationViewControllerView").at("hidden").get<bool>());
}

TEST_F(LongLook, HasARowForEachActionWithItsTitleOrIdentifier) {
  openWithActions();
  EXPECT_TRUE(hasText(view("UIInterfaceActionGroupView"), "Archive"));
  EXPECT_TRUE(hasText(view("UIInterfaceActionGroupView"), "nameless"));
  EXPECT_EQ(view("UIInterfaceActionGroupView").at("children").size(), 2U);
}

TEST_F(LongLook, CloseButtonIsVisible) {
  open();
  const Json frame = view("NCLongLookCloseButton").at("frame");
  const int x = static_cast<int>(frame[0].get<double>() + frame[2].get<double>() / 2);
  const int y = static_cast<int>(frame[1].get<double>() + frame[3].get<double>() / 2);
  const auto screen = uikit::renderScreen(1);
  EXPECT_NE(screen->pixel(x, y), screen->pixel(x - 7, y)) << "the cross on its disk";
  EXPECT_NE(screen->pixel(x - 7, y), screen->pixel(x - 14, y)) << "the disk on the card";
}

TEST_F(LongLook, HasNoRowsWithoutActions) {
  open();
  EXPECT_EQ(view("UIInterfaceActionGroupView").at("children").size(), 0U);
  EXPECT_EQ(view("UIInterfaceActionGroupView").at("frame")[3], 0);
}

TEST_F(LongLook, KeepsALongMessageAndTheActionsOnScreen) {
  std::string body;
  for (int line = 0; line < 200; ++line) body += "line\n";
  open({{"message", body}, {"actions", {{{"key", "a"}, {"identifier", "x"}, {"title", "Archive"}}}}});
  EXPECT_GE(top(card()), 44);
  EXPECT_LE(bottom(view("UIInterfaceActionGroupView")), 812 - 34);
  const Json label = PlainPhone::find(Json::array({card()}), "text", body);
  EXPECT_GT(label.at("lines"), 10);
  EXPECT_LE(bottom(label), bottom(card()));
}

TEST_F(LongLook, TapOutsideDismissesItAndTheBannerButKeepsTheNotification) {
  const int controller = open();
  phone.run("tap", {{"at", {187, 700}}});
  phone.wait(1);
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(phone.isDismissed(controller));
  EXPECT_EQ(executedActions(), Identifiers{});
  EXPECT_EQ(listedCount(), 1U);
}

TEST_F(LongLook, TapOnItOpensTheApplication) {
  const int controller = open();
  phone.run("tap", {{"label", "Hello"}});
  phone.wait(1);
  EXPECT_EQ(executedActions(), Identifiers{"com.apple.UNNotificationDefaultActionIdentifier"});
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(phone.isDismissed(controller));
}

TEST_F(LongLook, TapOnARowExecutesItsAction) {
  const int controller = openWithActions();
  phone.run("tap", {{"label", "Archive"}});
  EXPECT_EQ(executedActions(), Identifiers{"archive"});
  phone.wait(1);
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(phone.isDismissed(controller));
  EXPECT_EQ(listedCount(), 0U);
}

TEST_F(LongLook, CloseButtonExecutesTheCloseAction) {
  openWithActions();
  tapMiddle(view("NCLongLookCloseButton"));
  phone.wait(1);
  EXPECT_EQ(executedActions(), Identifiers{"com.apple.UNNotificationCloseActionIdentifier"});
  EXPECT_FALSE(isOpen());
}

TEST_F(LongLook, CloseButtonOnlyDismissesIfThereIsNoCloseAction) {
  const int controller = open();
  tapMiddle(view("NCLongLookCloseButton"));
  phone.wait(1);
  EXPECT_EQ(executedActions(), Identifiers{});
  EXPECT_TRUE(phone.isDismissed(controller));
  EXPECT_EQ(listedCount(), 1U);
}

TEST_F(LongLook, PreventsAutomaticDismissalOfItsBanner) {
  const int controller = open();
  phone.wait(60);
  EXPECT_TRUE(isOpen());
  EXPECT_FALSE(phone.isDismissed(controller));
}

TEST_F(LongLook, ClosesWithItsBannerForEveryKindOfDismissal) {
  for (const Json& end : {Json{{"do", "dismiss"}, {"controller", 1}, {"transition", 0}},
                          Json{{"do", "dismiss"}, {"controller", 2}, {"transition", 1}}, Json{{"do", "lock"}},
                          Json{{"do", "press"}, {"type", 101}, {"force", 0}}, Json{{"do", "grabber"}},
                          Json{{"do", "withdraw"}}, Json{{"do", "present"}, {"section", "a.b"}}}) {
    open();
    ASSERT_TRUE(isOpen()) << end;
    phone.run(end);
    phone.wait(1);
    EXPECT_FALSE(isOpen()) << end;
  }
}

TEST_F(LongLook, OpensOnceIfRequestedTwice) {
  const int controller = open();
  for (const char* kind : {"scroll", "click", "trigger"})
    phone.run("longlook", {{"controller", controller}, {"kind", kind}});
  EXPECT_EQ(phone.log().size(), 3U);
  const Json window = view("SBNotificationBannerWindow");
  EXPECT_EQ(window.at("children").size(), 2U);
}

TEST_F(LongLook, IsDismissedOnceByTwoTaps) {
  const int controller = open();
  phone.run("tap", {{"at", {187, 700}}});
  phone.run("tap", {{"at", {187, 700}}});
  phone.wait(1);
  EXPECT_EQ(phone.log(), Json::array({{{"event", "dismiss"}, {"controller", controller}, {"transition", 1}}}));
}

TEST_F(LongLook, FollowsTheAppearance) {
  openWithActions();
  const Json light = card().at("background");
  const Json row = view("UIInterfaceActionRow").at("background");
  phone.run("appearance", {{"style", "dark"}});
  EXPECT_LT(card().at("background")[0].get<double>(), 0.3);
  EXPECT_NE(card().at("background"), light);
  EXPECT_NE(view("UIInterfaceActionRow").at("background"), row);
}

TEST_F(LongLook, IsReleasedOnceItIsDismissed) {
  open();
  const objc::Weak<UIViewController> shown(
      objc::send<UIViewController*, "presentedViewController">(springboard::openedShortLook()));
  ASSERT_NE(shown.lock(), nullptr);
  phone.run("tap", {{"at", {187, 700}}});
  phone.wait(3);
  EXPECT_EQ(shown.lock(), nullptr);
}

TEST_F(LongLook, LetsTheBannerWindowBecomeKey) {
  phone.present();
  const auto canBecomeKey = [] {
    UIWindow* window = springboard::bannerController(1)->view()->window();
    return objc::send<bool, "_canBecomeKeyWindow">(window);
  };
  EXPECT_FALSE(canBecomeKey());
  phone.run("longlook", {{"controller", 1}});
  EXPECT_TRUE(canBecomeKey());
}

TEST_F(LongLook, DoesNotOpenFromABannerThatIsBeingDismissed) {
  const int first = phone.present({{"title", "First"}});
  phone.wait(1);
  phone.run("dismiss", {{"controller", first}});
  phone.wait(0.1);
  bool opened = true;
  const auto completion = objc::block([&opened](bool result) { opened = result; });
  objc::send<void, "_presentLongLookForScrollAnimated:completion:">(
      springboard::bannerController(static_cast<std::size_t>(first)).get(), true,
      static_cast<objc::Block<void(bool)>*>(completion));
  EXPECT_FALSE(opened);
  phone.wait(3);
  phone.present({{"title", "Second"}});
  phone.wait(1);
  EXPECT_FALSE(isOpen());
}

TEST_F(LongLook, ClosesWithItsBannerWhenAnApplicationLaunches) {
  phone.run("lock");
  const int controller = open();
  phone.wait(7);
  UIApplication::sharedApplication()->launchApplication("com.apple.MobileSMS"_ns, false);
  phone.wait(1);
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(phone.isDismissed(controller));
}

TEST_F(LongLook, CanBeDismissedBeforeItsBanner) {
  const int controller = open();
  objc::send<void, "dismissViewControllerAnimated:completion:">(springboard::openedShortLook(), false,
                                                                static_cast<objc::Block<void()>*>(nullptr));
  phone.run("dismiss", {{"controller", controller}});
  phone.wait(1);
  EXPECT_EQ(springboard::openedShortLook(), nullptr);
  EXPECT_TRUE(phone.isDismissed(controller));
}

TEST_F(LongLook, DoesNotOpenFromAControllerWithoutAShortLook) {
  phone.present();
  const auto bare = objc::adopt(objc::send<NCNotificationViewController*, "initWithNotificationRequest:">(
      objc::allocate<NCNotificationViewController>(), springboard::bannerController(1)->notificationRequest()));
  bool opened = true;
  const auto completion = objc::block([&opened](bool result) { opened = result; });
  objc::send<void, "presentLongLookAnimated:trigger:completion:">(bare.get(), true, NSInteger{0},
                                                                  static_cast<objc::Block<void(bool)>*>(completion));
  EXPECT_FALSE(opened);
}

class MirroredLongLook : public LongLook {
 protected:
  MirroredLongLook() : LongLook({.locale = "ar_EG"}) {}
};

TEST_F(MirroredLongLook, HasItsCloseButtonOnTheLeft) {
  open();
  EXPECT_EQ(view("NCLongLookCloseButton").at("frame")[0], card().at("frame")[0]);
}

}  // namespace

}  // namespace test
