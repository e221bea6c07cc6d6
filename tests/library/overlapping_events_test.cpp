// Tests of two events that affect a banner at the same time. Regardless of the combination, the banner leaves the
// screen, the platform dismisses it exactly once, and its controller and view are released.
#include <gtest/gtest.h>

#include <vector>

#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::containerOf;
using test::Json;
using test::Phone;
using test::postCommand;

class OverlappingEvents : public testing::Test {
 protected:
  int present(const Json& fields = Json::object()) {
    Json all = {{"title", "Anna"}, {"message", "Hello"}};
    all.update(fields);
    const objc::AutoreleasePool pool;
    const int controller = phone.present(all);
    presented_.push_back({objc::Weak<BannerController>(test::controllerOf(controller).get()),
                          objc::Weak<BrimContainer>(containerOf(controller))});
    return controller;
  }

  Json state(int controller) { return phone.state(controller); }
  void drag(double distance, const char* end = "release") {
    phone.run({{"do", "drag"}, {"by", {0, distance}}, {"end", end}, {"steps", 4}});
  }
  bool isEditing(int controller) {
    const objc::AutoreleasePool pool;
    return containerOf(controller)->reply()->isFirstResponder();
  }

  // Waits until all banners are dismissed. Locking the phone dismisses the persistent banners.
  void TearDown() override {
    phone.wait(20);
    phone.run({{"do", "lock"}});
    phone.wait(20);
    std::vector<int> dismissals(presented_.size(), 0);
    for (const Json& event : phone.log())
      if (event.at("event") == "dismiss") ++dismissals.at(event.at("controller").get<std::size_t>() - 1);
    for (std::size_t index = 0; index < presented_.size(); ++index) {
      const int controller = static_cast<int>(index) + 1;
      EXPECT_EQ(dismissals[index], 1) << "controller " << controller;
      EXPECT_FALSE(state(controller).at("brim"));
      EXPECT_TRUE(state(controller).at("dismissed"));
      EXPECT_EQ(presented_[index].controller.lock(), nullptr) << "controller " << controller;
      EXPECT_EQ(presented_[index].banner.lock(), nullptr) << "banner of controller " << controller;
    }
    EXPECT_TRUE(BrimContainer::DismissNotification());
  }

  Phone phone{test::Setup{}};

 private:
  struct Presented {
    objc::Weak<BannerController> controller;
    objc::Weak<BrimContainer> banner;
  };
  std::vector<Presented> presented_;
};

TEST_F(OverlappingEvents, TimerDuringADrag) {
  const int controller = present();
  phone.wait(4.9);
  drag(-12, "hold");
  phone.wait(0.2);
  EXPECT_TRUE(state(controller).at("isDismissing"));
  drag(100);
  EXPECT_TRUE(state(controller).at("isDismissing"));
  phone.wait(0.72);
  EXPECT_TRUE(state(controller).at("dismissed"));
}

TEST_F(OverlappingEvents, TimerDuringADragThatExpandedTheBanner) {
  const int controller = present();
  phone.wait(4.9);
  drag(300, "hold");
  phone.wait(0.2);
  EXPECT_FALSE(state(controller).at("isDismissing"));
  drag(1);
  EXPECT_TRUE(state(controller).at("expanded"));
}

TEST_F(OverlappingEvents, NotificationDuringTheExpansion) {
  const int older = present();
  phone.wait(1);
  drag(30);
  phone.wait(0.05);
  const int newer = present({{"title", "Bert"}});
  phone.wait(2);
  EXPECT_TRUE(state(older).at("expanded"));
  EXPECT_FALSE(state(older).at("dismissCalled"));
  EXPECT_FALSE(state(newer).at("brim"));
}

TEST_F(OverlappingEvents, AlarmBeforeTheReplacedBannerIsDismissed) {
  const int message = present();
  phone.wait(1);
  const int alarm = present({{"dismissAutomatically", false}});
  phone.wait(1.3);
  EXPECT_FALSE(state(message).at("brim"));
  phone.wait(10);
  EXPECT_TRUE(state(alarm).at("brim"));
  EXPECT_FALSE(state(alarm).at("dismissNotification"));
}

TEST_F(OverlappingEvents, CollapseOfTheReplacedBannerDoesNotAffectAnAlarm) {
  const int message = present();
  phone.wait(1);
  const int alarm = present({{"dismissAutomatically", false}});
  const objc::AutoreleasePool pool;
  const auto controller = test::controllerOf(message);
  controller->expandBanner(-100, containerOf(message), false, nullptr);
  EXPECT_FALSE(state(alarm).at("dismissNotification"));
}

TEST_F(OverlappingEvents, ExpansionOfTheReplacedBannerDoesNotKeepTheNewerOne) {
  const int older = present();
  phone.wait(1);
  const int newer = present({{"title", "Bert"}});
  {
    const objc::AutoreleasePool pool;
    const auto controller = test::controllerOf(older);
    controller->expandBanner(1000, containerOf(older), false, nullptr);
  }
  phone.wait(6);
  EXPECT_FALSE(state(newer).at("brim"));
}

TEST_F(OverlappingEvents, TapOnTheReplacedBannerDismissesItUnderAnAlarm) {
  const int message = present();
  phone.wait(1);
  const int alarm = present({{"dismissAutomatically", false}});
  phone.wait(0.1);
  {
    const objc::AutoreleasePool pool;
    test::controllerOf(message)->forceDismissNotification(nullptr);
  }
  EXPECT_TRUE(state(message).at("isDismissing"));
  phone.wait(1);
  EXPECT_FALSE(state(message).at("brim"));
  EXPECT_TRUE(state(alarm).at("brim"));
}

TEST_F(OverlappingEvents, LockDuringTheDismissal) {
  const int controller = present();
  phone.wait(1);
  postCommand({{"command", "dismiss"}});
  phone.wait(0.3);
  phone.run({{"do", "lock"}});
  EXPECT_FALSE(state(controller).at("brim"));
  EXPECT_TRUE(state(controller).at("dismissed"));
}

TEST_F(OverlappingEvents, TapDuringTheReply) {
  const int controller = present();
  phone.wait(1);
  drag(200);
  phone.wait(1);
  ASSERT_TRUE(isEditing(controller));
  phone.run({{"do", "type"}, {"text", "Half a sent"}});
  phone.run({{"do", "tap"}, {"label", "Anna"}});
  EXPECT_TRUE(state(controller).at("isDismissing"));
  EXPECT_FALSE(isEditing(controller));
}

TEST_F(OverlappingEvents, ThirdBannerBeforeTheFirstIsDismissed) {
  const int first = present({{"title", "One"}});
  phone.wait(1);
  present({{"title", "Two"}});
  phone.wait(0.25);
  const int third = present({{"title", "Three"}});
  phone.wait(2);
  EXPECT_FALSE(state(first).at("brim"));
  EXPECT_TRUE(state(third).at("brim"));
}

TEST_F(OverlappingEvents, ThreeBannersInOneRunLoopIteration) {
  const int first = present({{"title", "One"}, {"message", "1\n2\n3"}});
  const int second = present({{"title", "Two"}});
  const int third = present({{"title", "Three"}});
  phone.wait(1.3);
  EXPECT_FALSE(state(first).at("brim"));
  EXPECT_FALSE(state(second).at("brim"));
  EXPECT_TRUE(state(third).at("brim"));
}

TEST_F(OverlappingEvents, UpdateAfterTheDismissal) {
  const int controller = present({{"dismissAutomatically", false}});
  phone.wait(1);
  postCommand({{"command", "dismiss"}});
  phone.wait(0.72);
  postCommand({{"command", "updateReply"}, {"header", "Anna"}, {"body", "Too late"}});
  EXPECT_FALSE(state(controller).at("brim"));
}

TEST_F(OverlappingEvents, UpdateDuringTheDismissal) {
  const int controller = present({{"dismissAutomatically", false}});
  phone.wait(1);
  postCommand({{"command", "dismiss"}});
  phone.wait(0.3);
  postCommand({{"command", "updateReply"}, {"header", "Anna"}, {"body", "Just in time"}});
  EXPECT_EQ(phone.view(controller, "bodyLabel").at("text"), "Hello\nJust in time");
  phone.wait(0.5);
  EXPECT_FALSE(state(controller).at("brim"));
}

TEST_F(OverlappingEvents, AppearanceChangeDuringTheDismissal) {
  const int controller = present();
  phone.wait(1);
  postCommand({{"command", "dismiss"}});
  phone.wait(0.3);
  phone.run({{"do", "appearance"}, {"style", "dark"}});
  phone.wait(0.45);
  EXPECT_FALSE(state(controller).at("brim"));
}

TEST_F(OverlappingEvents, AppearanceChangeDuringTheExpansion) {
  const int controller = present();
  phone.wait(1);
  drag(30);
  phone.wait(0.05);
  phone.run({{"do", "appearance"}, {"style", "dark"}});
  phone.wait(1);
  EXPECT_TRUE(state(controller).at("expanded"));
  EXPECT_EQ(phone.view(controller, "headerLabel").at("color"), Json({1.0, 1.0, 1.0, 1.0}));
}

// The settings can change during the attachment. The banner then uses some old and some new values.
TEST_F(OverlappingEvents, SettingsChangedDuringTheAttachment) {
  const std::vector<std::pair<const char*, Json>> settings = {
      {"tinyBanner", true}, {"maxLineCount", -1}, {"appSize", 0}, {"showButtons", true}, {"timeToDismiss", 0}};
  for (const auto& [key, value] : settings) {
    present();
    phone.set(key, value);
    phone.wait(0);
  }
  phone.wait(0.01);
  drag(30);
}

TEST_F(OverlappingEvents, SettingThatMakesTheBannerTinyDuringTheDismissal) {
  const int controller = present({{"message", "1\n2"}});
  phone.wait(1);
  postCommand({{"command", "dismiss"}});
  phone.wait(0.1);
  phone.set("tinyBanner", true);
  phone.wait(0.63);
  EXPECT_TRUE(state(controller).at("brim"));
  phone.wait(0.02);
  EXPECT_FALSE(state(controller).at("brim"));
}

TEST_F(OverlappingEvents, ReplyAfterANewerNotification) {
  const int older = present();
  phone.wait(1);
  drag(200);
  phone.wait(1);
  ASSERT_TRUE(isEditing(older));
  present({{"title", "Bert"}});
  phone.run({{"do", "type"}, {"text", "Yes"}});
  phone.run({{"do", "key"}, {"name", "return"}});
  phone.wait(2);
  EXPECT_FALSE(state(older).at("brim"));
}

TEST_F(OverlappingEvents, NewerNotificationKeepsAnUnfinishedReply) {
  const int older = present({{"section", "com.apple.MobileSMS"}});
  phone.wait(1);
  drag(200);
  phone.wait(1);
  phone.run({{"do", "type"}, {"text", "See you "}});
  const int newer = present({{"title", "Bert"}});
  phone.wait(10);
  EXPECT_FALSE(state(newer).at("brim"));
  EXPECT_FALSE(state(older).at("wasExternallyDismissed"));
  ASSERT_TRUE(isEditing(older));
  phone.run({{"do", "type"}, {"text", "at one"}});
  EXPECT_EQ(phone.view(older, "reply").at("text"), "See you at one");
}

TEST_F(OverlappingEvents, BannerThatOutlastedANewerNotificationIsDismissedByADrag) {
  const int older = present();
  phone.wait(1);
  drag(30);
  phone.wait(1);
  const int newer = present({{"title", "Bert"}});
  phone.wait(1);
  phone.run({{"do", "drag"}, {"controller", older}, {"by", {0, -100}}});
  phone.wait(1);
  EXPECT_TRUE(state(older).at("dismissed"));
  EXPECT_TRUE(state(newer).at("dismissed"));
}

TEST_F(OverlappingEvents, HomeButtonDuringTheReply) {
  const int controller = present();
  phone.wait(1);
  drag(200);
  phone.wait(1);
  phone.run({{"do", "type"}, {"text", "Unsent"}});
  phone.run({{"do", "press"}, {"type", 101}, {"force", 0}});
  EXPECT_FALSE(state(controller).at("brim"));
  EXPECT_NE(phone.runExpectingError({{"do", "type"}, {"text", "more"}}).find("no view has the keyboard focus"),
            std::string::npos);
}

TEST_F(OverlappingEvents, TwoDismissalGesturesOfTheGrabber) {
  const int controller = present({{"dismissAutomatically", false}});
  phone.wait(1);
  phone.run({{"do", "grabber"}});
  phone.wait(0.3);
  phone.run({{"do", "grabber"}});
  phone.wait(0.5);
  EXPECT_TRUE(state(controller).at("dismissed"));
}

TEST_F(OverlappingEvents, SendAndDragInOneRunLoopIteration) {
  const int controller = present();
  phone.wait(1);
  drag(200);
  phone.wait(1);
  phone.run({{"do", "type"}, {"text", "Yes"}});
  drag(-12, "hold");
  phone.run({{"do", "key"}, {"name", "return"}});
  drag(-100);
  phone.wait(1);
  EXPECT_TRUE(state(controller).at("dismissed"));
}

// The removal of the older banner interrupts the newer banner's dismissal animation.
TEST_F(OverlappingEvents, ReplacementThatIsDismissedImmediately) {
  phone.set("timeToDismiss", 0);
  const int older = present({{"dismissAutomatically", false}});
  drag(164);
  phone.run({{"do", "grabber"}});
  const int newer = present();
  phone.wait(20);
  EXPECT_TRUE(state(older).at("dismissed"));
  EXPECT_TRUE(state(newer).at("dismissed"));
}

}  // namespace
