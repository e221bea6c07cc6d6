// Tests of the platform's banners while the library is not loaded: layout, dismissal, touches and buttons.
#include "simulator/springboard/banner/banner_presenter.hpp"
#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

Json frameOf(PlainPhone& phone, int controller) {
  return phone.view(controller, "NCNotificationViewControllerView").at("frame");
}

Json dismissal(int controller, int transition) {
  return {{"event", "dismiss"}, {"controller", controller}, {"transition", transition}};
}

TEST(Banners, StartEightPointsBelowTheTopOnScreensWithoutABottomSafeArea) {
  PlainPhone phone({.device = "iphone-8"});
  const Json frame = frameOf(phone, phone.present());
  EXPECT_EQ(frame[0], 8);
  EXPECT_EQ(frame[1], 8);
  EXPECT_EQ(frame[2], 375 - 16);
}

TEST(Banners, StartAtTheTopSafeAreaOnScreensWithABottomSafeArea) {
  PlainPhone phone({.device = "iphone-11-pro-max"});
  const Json frame = frameOf(phone, phone.present());
  EXPECT_EQ(frame[0], 8);
  EXPECT_EQ(frame[1], 44);
  EXPECT_EQ(frame[2], 414 - 16);
}

TEST(Banners, ViewClassHasTheNameOfTheSystemVersion) {
  PlainPhone phone({.systemVersion = "11.4"});
  const int controller = phone.present();
  EXPECT_FALSE(phone.view(controller, "_NCNotificationViewControllerView").is_null());
  EXPECT_TRUE(phone.view(controller, "NCNotificationViewControllerView").is_null());
}

TEST(Banners, ShowAllTextsOfTheNotification) {
  PlainPhone phone;
  const int controller = phone.present({{"title", "Title"}, {"subtitle", "Subtitle"}, {"message", "Message"}});
  const Json windows = phone.run("tree", {{"controller", controller}}).at("windows");
  for (const char* text : {"MESSAGES", "now", "Title", "Subtitle", "Message"})
    EXPECT_FALSE(PlainPhone::find(windows, "text", text).is_null()) << text;
}

TEST(Banners, ShowTheSummaryIfTheMessageIsEmpty) {
  PlainPhone phone;
  const int controller = phone.present({{"message", ""}, {"summary", "2 more"}});
  EXPECT_FALSE(
      PlainPhone::find(phone.run("tree", {{"controller", controller}}).at("windows"), "text", "2 more").is_null());
}

TEST(Banners, NameUnknownApplicationsByTheLastPartOfTheIdentifier) {
  PlainPhone phone;
  const int controller = phone.present({{"section", "org.example.notes"}});
  EXPECT_FALSE(
      PlainPhone::find(phone.run("tree", {{"controller", controller}}).at("windows"), "text", "NOTES").is_null());
}

TEST(Banners, AreDismissedAfterFiveSeconds) {
  PlainPhone phone;
  const int controller = phone.present();
  phone.wait(4.99);
  EXPECT_EQ(phone.log(), Json::array());
  phone.wait(0.02);
  EXPECT_EQ(phone.log(), Json::array({dismissal(controller, 1)}));
  EXPECT_FALSE(phone.isDismissed(controller));
  phone.wait(0.3);
  EXPECT_TRUE(phone.isDismissed(controller));
}

TEST(Banners, AreDismissedAutomaticallyWithoutOptions) {
  PlainPhone phone;
  const int controller = phone.present({{"dismissAutomatically", nullptr}});
  phone.wait(6);
  EXPECT_TRUE(phone.isDismissed(controller));
}

TEST(Banners, StayIfTheRequestForbidsAutomaticDismissal) {
  PlainPhone phone;
  const int controller = phone.present({{"dismissAutomatically", false}});
  phone.wait(600);
  EXPECT_FALSE(phone.isDismissed(controller));
  EXPECT_EQ(phone.log(), Json::array());
}

TEST(Banners, AreDismissedByANewerBanner) {
  PlainPhone phone;
  const int older = phone.present({{"dismissAutomatically", false}});
  const int newer = phone.present();
  phone.wait(1);
  EXPECT_TRUE(phone.isDismissed(older));
  EXPECT_FALSE(phone.isDismissed(newer));
  EXPECT_EQ(phone.log(), Json::array({dismissal(older, 1)}));
}

TEST(Banners, OpenTheApplicationOnATapAndAreDismissed) {
  PlainPhone phone;
  const int controller = phone.present();
  phone.wait(1);
  phone.run("tap", {{"controller", controller}});
  EXPECT_EQ(phone.log(), Json::array({{{"event", "action"},
                                       {"identifier", "com.apple.UNNotificationDefaultActionIdentifier"},
                                       {"parameters", Json::object()},
                                       {"animated", true}},
                                      {{"event", "launch"}, {"bundle", "com.apple.MobileSMS"}, {"suspended", false}},
                                      dismissal(controller, 1)}));
}

TEST(Banners, AreDismissedByADragUp) {
  PlainPhone phone;
  const int controller = phone.present();
  phone.wait(1);
  phone.run("drag", {{"by", {0, -60}}});
  phone.wait(1);
  EXPECT_TRUE(phone.isDismissed(controller));
}

TEST(Banners, ReturnToTheirPlaceAfterAShortDrag) {
  PlainPhone phone;
  const int controller = phone.present({{"dismissAutomatically", false}});
  phone.wait(1);
  phone.run("drag", {{"by", {0, -15}}});
  phone.wait(1);
  EXPECT_EQ(frameOf(phone, controller)[1], 44);
}

TEST(Banners, RequestTheLongLookOnADragDown) {
  PlainPhone phone;
  const int controller = phone.present();
  phone.wait(1);
  phone.run("drag", {{"by", {0, 80}}});
  EXPECT_EQ(phone.log(), Json::array({{{"event", "longlook"}, {"controller", controller}}}));
}

TEST(Banners, RequestTheLongLookOnEveryTrigger) {
  PlainPhone phone;
  const int controller = phone.present();
  for (const char* kind : {"scroll", "click", "trigger"}) {
    phone.run("longlook", {{"controller", controller}, {"kind", kind}});
    EXPECT_EQ(phone.log(), Json::array({{{"event", "longlook"}, {"controller", controller}}})) << kind;
  }
}

TEST(Banners, AreDismissedImmediatelyByTransitionZero) {
  PlainPhone phone;
  const int controller = phone.present();
  phone.run("dismiss", {{"controller", controller}, {"transition", 0}});
  EXPECT_TRUE(phone.isDismissed(controller));
  EXPECT_EQ(phone.log(), Json::array({dismissal(controller, 0)}));
}

TEST(Banners, IgnoreARepeatedDismissal) {
  PlainPhone phone;
  const int controller = phone.present();
  for (const double seconds : {0.1, 0.1, 0.2, 2.0}) {
    phone.answer({{"do", "dismiss"}, {"controller", controller}, {"transition", 1}});
    phone.wait(seconds);
  }
  EXPECT_TRUE(phone.isDismissed(controller));
  EXPECT_EQ(phone.log(), Json::array({dismissal(controller, 1)}));
}

TEST(Banners, AreReleasedOnceTheyAreDismissed) {
  PlainPhone phone;
  const int controller = phone.present();
  phone.run("dismiss", {{"controller", controller}, {"transition", 0}});
  EXPECT_NE(springboard::bannerController(1), nullptr);
  phone.wait(10);
  EXPECT_EQ(springboard::bannerController(1), nullptr);
  EXPECT_TRUE(phone.isDismissed(controller));
}

TEST(Banners, AreReplacedByAFollowUp) {
  PlainPhone phone;
  const int controller = phone.present({{"dismissAutomatically", false}});
  const Json answer = phone.run("update", {{"controller", controller}, {"message", "And another thing"}});
  const int followUp = answer.at("controller");
  phone.wait(1);
  EXPECT_TRUE(phone.isDismissed(controller));
  const Json windows = phone.run("tree", {{"controller", followUp}}).at("windows");
  EXPECT_FALSE(PlainPhone::find(windows, "text", "And another thing").is_null());
  EXPECT_FALSE(PlainPhone::find(windows, "text", "Anna").is_null());
  EXPECT_EQ(phone.log()[0], Json({{"event", "present"}, {"controller", controller}}));
}

TEST(Banners, DoNotReceiveTouchesOutsideThem) {
  PlainPhone phone;
  const int controller = phone.present();
  phone.wait(1);
  phone.run("tap", {{"at", {187, 600}}});
  phone.wait(1);
  EXPECT_FALSE(phone.isDismissed(controller));
  EXPECT_EQ(phone.log(), Json::array());
}

TEST(Banners, AreDismissedWhenThePhoneLocks) {
  PlainPhone phone;
  const int controller = phone.present();
  phone.run("lock");
  phone.wait(1);
  EXPECT_TRUE(phone.isDismissed(controller));
  EXPECT_EQ(phone.run("tree").at("windows").size(), 3U);
  phone.run("press", {{"type", 101}, {"force", 0}});
  EXPECT_EQ(phone.run("tree").at("windows").size(), 2U);
}

TEST(Banners, AreDismissedWhenTheHomeButtonIsReleased) {
  PlainPhone phone;
  const int controller = phone.present();
  phone.run("press", {{"type", 101}, {"force", 1}});
  phone.run("press", {{"type", 102}, {"force", 0}});
  phone.wait(1);
  EXPECT_FALSE(phone.isDismissed(controller));
  phone.run("press", {{"type", 101}, {"force", 0}});
  phone.wait(1);
  EXPECT_TRUE(phone.isDismissed(controller));
}

TEST(Banners, GrabberReportsWhetherItDismissedABanner) {
  PlainPhone phone;
  EXPECT_FALSE(phone.run("grabber").at("dismissed").get<bool>());
  const int controller = phone.present();
  EXPECT_TRUE(phone.run("grabber").at("dismissed").get<bool>());
  phone.wait(1);
  EXPECT_TRUE(phone.isDismissed(controller));
}

TEST(Banners, AreMirroredInRightToLeftLanguages) {
  PlainPhone phone({.locale = "ar_EG"});
  const Json icon = phone.view(phone.present(), "UIImageView").at("frame");
  EXPECT_GT(icon[0].get<double>(), 300);
}

}  // namespace
