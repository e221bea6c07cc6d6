#include <gtest/gtest.h>

#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::controllerOf;
using test::eventsOf;
using test::Json;
using test::Phone;

const Json persistent = {{"title", "Anna"}, {"message", "Hello"}, {"dismissAutomatically", false}};

std::string body(Phone& phone, int controller) { return phone.view(controller, "bodyLabel").value("text", ""); }

// Two banners on screen at once: the older one has not gone yet.
std::pair<int, int> presentTwo(Phone& phone) {
  const int older = phone.present({{"title", "One"}, {"message", "1"}});
  phone.wait(1);
  const int newer = phone.present({{"title", "Two"}, {"message", "2"}});
  phone.wait(0.2);
  return {older, newer};
}

TEST(CommandChannel, LockingRemovesEveryBannerAtOnce) {
  Phone phone;
  const auto [older, newer] = presentTwo(phone);
  ASSERT_TRUE(phone.state(older).at("brim"));
  ASSERT_TRUE(phone.state(newer).at("brim"));
  phone.run({{"do", "lock"}});
  for (const int controller : {older, newer}) {
    EXPECT_FALSE(phone.state(controller).at("brim"));
    EXPECT_TRUE(phone.state(controller).at("dismissed"));
  }
  phone.wait(10);
  const auto seen = eventsOf(phone.log(), "dismiss");
  ASSERT_EQ(seen.size(), 2U);
  for (const Json& event : seen) EXPECT_EQ(event.at("transition"), 0);
}

TEST(CommandChannel, LockingLetsTheNextBannerCome) {
  Phone phone;
  phone.present(persistent);
  phone.run({{"do", "lock"}});
  EXPECT_TRUE(phone.state(phone.present()).at("brim"));
}

TEST(CommandChannel, GrabberIsLeftToThePlatformWhileEveryBannerMayGo) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}});
  phone.wait(1);
  phone.log();
  EXPECT_TRUE(phone.run({{"do", "grabber"}}).at("dismissed"));
  EXPECT_EQ(phone.log(), Json::array());
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

TEST(CommandChannel, GrabberTakesABannerAwayThatMustStay) {
  Phone phone;
  const int controller = phone.present(persistent);
  phone.wait(1);
  phone.log();
  EXPECT_TRUE(phone.run({{"do", "grabber"}}).at("dismissed"));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_TRUE(phone.state(controller).at("brim"));
  phone.wait(1);
  EXPECT_TRUE(phone.state(controller).at("hasDismissed"));
}

TEST(CommandChannel, GrabberTakesABannerAwayThatWasPulledOpen) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}});
  phone.wait(1);
  phone.run({{"do", "drag"}, {"by", {0, 200}}});
  phone.wait(1);
  phone.run({{"do", "grabber"}});
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(CommandChannel, UpdateReachesOnlyTheConversationOfThatHeader) {
  Phone phone;
  const int controller = phone.present(persistent);
  test::command({{"command", "updateReply"}, {"header", "Bert"}, {"body", "Not for Anna"}});
  EXPECT_EQ(body(phone, controller), "Hello");
  test::command({{"command", "updateReply"}, {"header", "Anna"}, {"body", "More"}});
  EXPECT_EQ(body(phone, controller), "Hello\nMore");
}

TEST(CommandChannel, UpdateWithoutHeaderOrBodyChangesNothing) {
  Phone phone;
  const int controller = phone.present(persistent);
  test::command({{"command", "updateReply"}, {"header", "Anna"}});
  test::command({{"command", "updateReply"}, {"body", "More"}});
  EXPECT_EQ(body(phone, controller), "Hello");
}

TEST(CommandChannel, UpdateLeavesABannerAloneThatCannotBeAnswered) {
  Phone phone;
  Json fields = persistent;
  fields["section"] = "com.apple.mobilemail";
  const int controller = phone.present(fields);
  test::command({{"command", "updateReply"}, {"header", "Anna"}, {"body", "More"}});
  EXPECT_EQ(body(phone, controller), "Hello");
}

TEST(CommandChannel, UpdateIsComparedWithTheHeaderBeforePrivacyHidIt) {
  Phone phone(test::Setup{.options = {}, .settings = {{"hide_unless_expanded", true}}});
  const int controller = phone.present(persistent);
  test::command({{"command", "updateReply"}, {"header", "Anna"}, {"body", "More"}});
  EXPECT_EQ(body(phone, controller), "\nMore");
}

TEST(CommandChannel, FollowUpJoinsTheBannerThatMustStayAndIsCleared) {
  Phone phone;
  const int controller = phone.present(persistent);
  phone.wait(1);
  phone.log();
  const Json answer = phone.run({{"do", "update"}, {"controller", controller}, {"message", "And cake"}});
  EXPECT_FALSE(answer.contains("controller"));
  EXPECT_EQ(body(phone, controller), "Hello\nAnd cake");
  const Json events = phone.log();
  EXPECT_TRUE(eventsOf(events, "present").empty());
  const auto posted = eventsOf(events, "post");
  ASSERT_EQ(posted.size(), 1U);
  EXPECT_EQ(posted[0].at("userInfo"), Json({{"body", "And cake"}, {"command", "updateReply"}, {"header", "Anna"}}));
  const auto actions = eventsOf(events, "action");
  ASSERT_EQ(actions.size(), 1U);
  EXPECT_EQ(actions[0].at("identifier"), "com.apple.UNNotificationDismissActionIdentifier");
  EXPECT_TRUE(eventsOf(events, "haptic").empty());
}

TEST(CommandChannel, FollowUpTakesItsHeaderFromTheSubtitleWhereThereIsNoTitle) {
  Phone phone;
  const int controller = phone.present({{"subtitle", "Anna"}, {"message", "Hello"}, {"dismissAutomatically", false}});
  phone.run({{"do", "update"}, {"controller", controller}, {"message", "More"}});
  EXPECT_EQ(body(phone, controller), "Hello\nMore");
}

TEST(CommandChannel, FollowUpWithoutAHeaderIsDropped) {
  Phone phone;
  const int controller = phone.present({{"message", "Hello"}, {"dismissAutomatically", false}});
  phone.wait(1);
  phone.log();
  phone.run({{"do", "update"}, {"controller", controller}, {"message", "More"}});
  EXPECT_EQ(phone.log(), Json::array());
  EXPECT_EQ(body(phone, controller), "Hello");
}

TEST(CommandChannel, FollowUpOfABannerThatMayGoIsPresented) {
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  phone.wait(1);
  const Json answer = phone.run({{"do", "update"}, {"controller", controller}, {"message", "More"}});
  EXPECT_EQ(body(phone, answer.at("controller")), "More");
  EXPECT_EQ(eventsOf(phone.log(), "present").size(), 1U);
}

TEST(CommandChannel, ReplacedBannerThatIsGoingAlreadyIsNotAskedAgain) {
  Phone phone;
  const int older = phone.present({{"title", "One"}, {"message", "1"}});
  phone.wait(1);
  controllerOf(older)->forceDismissNotification(nullptr);
  phone.wait(0.1);
  const int newer = phone.present({{"title", "Two"}, {"message", "2"}});
  phone.wait(0.55);
  // A second request would have ended the animation at once.
  EXPECT_TRUE(phone.state(older).at("brim"));
  phone.wait(0.08);
  EXPECT_FALSE(phone.state(older).at("brim"));
  EXPECT_TRUE(phone.state(older).at("wasExternallyDismissed"));
  EXPECT_FALSE(controllerOf(newer)->wasExternallyDismissed());
}

TEST(CommandChannel, ReplacementWithoutAnIdentifierMeansEveryBanner) {
  Phone phone;
  const int controller = phone.present({{"title", "One"}});
  phone.wait(1);
  test::command({{"command", "isExternallyDismissed"}});
  EXPECT_TRUE(phone.state(controller).at("wasExternallyDismissed"));
  phone.wait(0.499);
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
  phone.wait(0.002);
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(CommandChannel, OtherMessagesAreIgnored) {
  Phone phone;
  const int controller = phone.present({{"title", "One"}});
  phone.wait(1);
  const Json before = phone.state(controller);
  test::command({});
  test::command({{"command", ""}});
  test::command({{"command", "DISMISS"}});
  test::command({{"command", "explode"}});
  test::broadcast("BrimNotifications", {{"command", "dismissnoani"}});
  EXPECT_EQ(phone.state(controller), before);
}

TEST(CommandChannel, CommandThatIsNoTextIsIgnored) {
  Phone phone;
  const int controller = phone.present(persistent);
  const Json before = phone.state(controller);
  for (const Json& userInfo : {Json({{"command", 1}}), Json({{"command", {"dismiss"}}}),
                               Json({{"command", "updateReply"}, {"header", 1}, {"body", Json::array()}})})
    NSNotificationCenter::defaultCenter()->post("BrimNotification"_ns,
                                                objc::as<NSDictionary>(base::objectOf(userInfo)));
  NSNotificationCenter::defaultCenter()->post("BrimNotification"_ns, nullptr);
  EXPECT_EQ(phone.state(controller), before);
  EXPECT_EQ(body(phone, controller), "Hello");
}

TEST(CommandChannel, ControllersThatNeverHadABannerStaySilent) {
  Phone phone(test::Setup{.options = {}, .settings = {}});
  phone.present(persistent);
  const auto aside = springboard::makeShortLookController(controllerOf(1)->notificationRequest());
  auto* controller = reinterpret_cast<BannerController*>(aside.get());
  controller->view();
  test::command({{"command", "isExternallyDismissed"}});
  EXPECT_FALSE(controller->wasExternallyDismissed());
}

TEST(CommandChannel, ControllersAreForgottenWithTheirLastReference) {
  Phone phone;
  const int controller = phone.present({{"title", "One"}});
  phone.wait(20);
  ASSERT_EQ(controllerOf(controller), nullptr);
  test::command({{"command", "dismiss"}});
}

}  // namespace
