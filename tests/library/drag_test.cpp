#include <gtest/gtest.h>

#include "tests/library/controllers.hpp"
#include "tests/library/drags.hpp"

namespace {

using test::containerOf;
using test::controllerOf;
using test::drag;
using test::eventsOf;
using test::Json;
using test::Phone;
using test::presentThreeLines;

constexpr double defaultHeight = 22;
constexpr double expandedHeight = 63;
constexpr double defaultOffset = -70;

double stateValue(Phone& phone, int controller, const char* field) {
  return phone.state(controller).at(field).get<double>();
}

double alphaOf(Phone& phone, int controller, const char* property) {
  return phone.view(controller, property).at("alpha").get<double>();
}

// Sets showingAllLines to false, as it is before the first call of setMaxLineCount:. The configuration of a banner has
// already called setMaxLineCount:.
void resetShowingAllLines(BrimContainer* banner) {
  const Ivar field = class_getInstanceVariable(BrimContainer::classObject(), "_showingAllLines");
  reinterpret_cast<bool*>(banner)[ivar_getOffset(field)] = false;
  ASSERT_FALSE(banner->showingAllLines());
}

TEST(Drag, UpwardsMovesTheBannerWithTheFinger) {
  Phone phone;
  const int controller = presentThreeLines(phone);
  phone.run(drag(-10, "hold"));
  EXPECT_DOUBLE_EQ(stateValue(phone, controller, "offset"), defaultOffset - 10);
  phone.run(drag(-5, "hold"));
  EXPECT_DOUBLE_EQ(stateValue(phone, controller, "offset"), defaultOffset - 15);
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

TEST(Drag, SpringsBackAndShowsAllLinesIfReleasedBeforeTheThreshold) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  const int controller = presentThreeLines(phone);
  phone.run(drag(-19, "release"));
  EXPECT_DOUBLE_EQ(stateValue(phone, controller, "offset"), defaultOffset);
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
  EXPECT_TRUE(containerOf(controller)->showingAllLines());
  EXPECT_EQ(phone.view(controller, "bodyLabel").at("lines"), 15);
}

TEST(Drag, OpensTheReplyFieldAfterSpringingBackOnlyIfThereAreNoButtons) {
  Phone phone;
  for (const bool showButtons : {false, true}) {
    phone.set("showButtons", showButtons);
    const int controller = presentThreeLines(phone);
    phone.run(drag(-19));
    phone.wait(1);
    EXPECT_EQ(containerOf(controller)->reply()->isFirstResponder(), !showButtons);
    EXPECT_DOUBLE_EQ(stateValue(phone, controller, "offset"), defaultOffset);
    EXPECT_DOUBLE_EQ(stateValue(phone, controller, "height"), defaultHeight);
    phone.run({{"do", "lock"}});
  }
}

TEST(Drag, UpAndThenDownReturnsTheBannerToItsPositionAndIncreasesItsHeight) {
  Phone phone;
  const int controller = presentThreeLines(phone);
  phone.run(drag(-10, "hold"));
  ASSERT_DOUBLE_EQ(stateValue(phone, controller, "offset"), defaultOffset - 10);
  phone.run(drag(30, "hold"));
  EXPECT_DOUBLE_EQ(stateValue(phone, controller, "offset"), defaultOffset);
  EXPECT_DOUBLE_EQ(stateValue(phone, controller, "height"), defaultHeight + 5);
}

TEST(Drag, DismissesIfItReachesTheThresholdInSeveralSteps) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  for (const int steps : {1, 2, 3, 5, 7, 10}) {
    const int controller = phone.present({{"message", "a\nb"}});
    phone.wait(1);
    // These numbers are not exact: 54.4 + 100 - 120 is rounded to a number other than 54.4 - 20.
    phone.run({{"do", "drag"}, {"at", {187, 54.4}}, {"by", {0, 100}}, {"steps", steps}, {"end", "hold"}});
    phone.run({{"do", "drag"}, {"by", {0, -120}}, {"steps", 1}});
    EXPECT_TRUE(phone.state(controller).at("isDismissing")) << steps;
    phone.wait(2);
  }
}

TEST(Drag, SpringsBackIn150Milliseconds) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  presentThreeLines(phone);
  phone.run(drag(-19, "release"));
  const std::string start = phone.picture();
  phone.wait(0.149);
  const std::string almostEnd = phone.picture();
  EXPECT_NE(almostEnd, start);
  phone.wait(0.001);
  const std::string end = phone.picture();
  EXPECT_NE(end, almostEnd);
  phone.wait(0.1);
  EXPECT_TRUE(phone.picture() == end);
}

TEST(Drag, DismissesIfReleasedAtTheThreshold) {
  Phone phone;
  const int controller = presentThreeLines(phone, {{"dismissAutomatically", false}});
  phone.run(drag(-20, "release"));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_TRUE(phone.state(controller).at("dismissNotification"));
}

TEST(Drag, CancellationIsTreatedAsRelease) {
  Phone phone;
  const int controller = presentThreeLines(phone);
  phone.run(drag(-60, "cancel"));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Drag, DiscardsTheTypedTextIfItDismisses) {
  Phone phone;
  const int controller = presentThreeLines(phone);
  phone.run(drag(100));
  phone.wait(1);
  phone.run({{"do", "type"}, {"text", "Yes"}});
  phone.run(drag(-60));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_EQ(phone.view(controller, "reply").at("text"), "");
  phone.wait(2);
  EXPECT_TRUE(eventsOf(phone.log(), "action").empty());
}

TEST(Drag, DownwardsAddsAQuarterOfTheTranslationAtEachMove) {
  Phone phone;
  const int controller = presentThreeLines(phone);
  phone.run(drag(20, "hold"));
  EXPECT_DOUBLE_EQ(stateValue(phone, controller, "height"), defaultHeight + 5);
  phone.run(drag(20, "hold"));
  EXPECT_DOUBLE_EQ(stateValue(phone, controller, "height"), defaultHeight + 5 + 10);
  EXPECT_DOUBLE_EQ(stateValue(phone, controller, "offset"), defaultOffset);
}

TEST(Drag, DownwardsExpandsTheBannerOnRelease) {
  Phone phone;
  const int controller = presentThreeLines(phone);
  phone.run(drag(12));
  EXPECT_DOUBLE_EQ(stateValue(phone, controller, "height"), expandedHeight);
  EXPECT_TRUE(phone.state(controller).at("expanded"));
  EXPECT_FALSE(phone.state(controller).at("dismissNotification"));
  EXPECT_EQ(phone.view(controller, "bodyLabel").at("measuredLines"), 3);
}

TEST(Drag, DoesNotExceedTheExpandedHeight) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  const int controller = presentThreeLines(phone);
  phone.run(drag(700, "hold"));
  EXPECT_DOUBLE_EQ(stateValue(phone, controller, "height"), expandedHeight);
  EXPECT_DOUBLE_EQ(alphaOf(phone, controller, "_buttonStackView"), 1);
  EXPECT_FALSE(phone.state(controller).at("dismissNotification"));
  phone.run(drag(-650, "hold"));
  EXPECT_DOUBLE_EQ(stateValue(phone, controller, "height"), expandedHeight);
}

TEST(Drag, HidesTheButtonsAtTheDefaultHeight) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  const int controller = presentThreeLines(phone);
  BrimContainer* banner = containerOf(controller);
  banner->updateHeight(30);
  controllerOf(controller)->expandBanner(-1000, banner, false, nullptr);
  EXPECT_DOUBLE_EQ(banner->height(), defaultHeight);
  EXPECT_DOUBLE_EQ(alphaOf(phone, controller, "_buttonStackView"), 0);
  EXPECT_TRUE(phone.view(controller, "_closeButton").at("hidden"));
  EXPECT_TRUE(BrimContainer::DismissNotification());
}

TEST(Drag, FadesTheButtonsInAccordingToTheHeightBeforeTheMove) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  const int controller = presentThreeLines(phone);
  phone.run(drag(40, "hold"));
  EXPECT_DOUBLE_EQ(alphaOf(phone, controller, "_buttonStackView"), 0);
  phone.run(drag(1, "hold"));
  EXPECT_NEAR(alphaOf(phone, controller, "_buttonStackView"), 10.0 / 41, 1e-9);
  EXPECT_FALSE(phone.view(controller, "_closeButton").at("hidden"));
}

TEST(Drag, UpwardsExpandsAPartlyExpandedBannerWithHiddenLines) {
  Phone phone;
  const int controller = presentThreeLines(phone);
  resetShowingAllLines(containerOf(controller));
  phone.run(drag(60, "hold"));
  ASSERT_GT(stateValue(phone, controller, "height"), defaultHeight);
  ASSERT_FALSE(phone.state(controller).at("expanded"));
  phone.run(drag(-100, "release"));
  EXPECT_TRUE(phone.state(controller).at("expanded"));
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

TEST(Drag, UpwardsDismissesAPartlyExpandedBannerThatShowsAllLines) {
  Phone phone;
  const int controller = presentThreeLines(phone);
  phone.run(drag(60, "hold"));
  phone.run(drag(-100, "release"));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Drag, UpwardsDismissesAnExpandedBanner) {
  Phone phone;
  const int controller = presentThreeLines(phone);
  phone.run(drag(100));
  phone.wait(1);
  phone.run(drag(-30));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Drag, ChangesNothingDuringTheDismissal) {
  Phone phone;
  const int controller = presentThreeLines(phone);
  phone.run(drag(-12, "hold"));
  test::postCommand({{"command", "dismiss"}});
  phone.wait(0.1);
  const Json before = phone.state(controller);
  phone.run(drag(200, "hold"));
  phone.run(drag(1, "release"));
  EXPECT_EQ(phone.state(controller), before);
}

TEST(Drag, ChangesNothingAfterTheDismissal) {
  Phone phone;
  presentThreeLines(phone);
  phone.run(drag(30, "hold"));
  test::postCommand({{"command", "dismissnoani"}});
  phone.run(drag(60, "hold"));
  phone.run(drag(1, "release"));
  EXPECT_TRUE(BrimContainer::DismissNotification());
}

// The recognizer can outlive the banner, so its last event can arrive after the dismissal.
TEST(Drag, DoesNotBlockLaterBannersIfItEndsAfterTheDismissal) {
  Phone phone;
  const int controller = presentThreeLines(phone);
  phone.run(drag(200, "hold"));
  const auto shortLook = controllerOf(controller);
  const auto banner = objc::retain(shortLook->brimView());
  auto* recognizers = objc::send<NSArray*, "gestureRecognizers">(banner.get());
  const auto pan = objc::retain(objc::as<UIPanGestureRecognizer>(recognizers->objectAtIndex(1)));
  ASSERT_NE(pan, nullptr);
  test::postCommand({{"command", "dismissnoani"}});
  objc::send<void, "panGestureHandler:">(shortLook.get(), pan.get());
  EXPECT_TRUE(BrimContainer::DismissNotification());
}

TEST(Drag, OnlyDismissNotificationChangesIfTheBannerHasNoHiddenContent) {
  Phone phone;
  const int controller = presentThreeLines(phone, {{"section", "com.apple.mobilemail"}});
  BrimContainer* banner = containerOf(controller);
  ASSERT_TRUE(banner->showingAllLines());
  controllerOf(controller)->expandBanner(1000, banner, false, nullptr);
  EXPECT_DOUBLE_EQ(banner->height(), defaultHeight);
  EXPECT_FALSE(BrimContainer::DismissNotification());
}

TEST(Drag, AddsElevenPointsToABannerWithHiddenLinesAndNoControls) {
  Phone phone;
  const int controller = presentThreeLines(phone, {{"section", "com.apple.mobilemail"}});
  resetShowingAllLines(containerOf(controller));
  phone.run(drag(12));
  EXPECT_DOUBLE_EQ(stateValue(phone, controller, "height"), defaultHeight + 11);
  EXPECT_FALSE(phone.state(controller).at("expanded"));
}

}  // namespace
