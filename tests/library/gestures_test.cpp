#include <gtest/gtest.h>

#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::containerOf;
using test::controllerOf;
using test::Json;
using test::Phone;

constexpr double resting = 22;
constexpr double expanded = 63;
constexpr double restingOffset = -70;

int present(Phone& phone, const Json& fields = Json::object()) {
  Json all = {{"title", "Anna"}, {"message", "Hello\nAnna\nhere"}, {"dismissAutomatically", true}};
  all.update(fields);
  const int controller = phone.present(all);
  phone.wait(1);
  return controller;
}

Json drag(double distance, const char* end = "release", int steps = 1) {
  return {{"do", "drag"}, {"by", {0, distance}}, {"end", end}, {"steps", steps}};
}

double number(Phone& phone, int controller, const char* field) {
  return phone.state(controller).at(field).get<double>();
}

double alphaOf(Phone& phone, int controller, const char* property) {
  return phone.view(controller, property).at("alpha").get<double>();
}

// As before the first count of lines was set, which configuring a banner does already.
void hideLinesAgain(BrimContainer* banner) {
  const Ivar field = class_getInstanceVariable(BrimContainer::classObject(), "_showingAllLines");
  reinterpret_cast<bool*>(banner)[ivar_getOffset(field)] = false;
  ASSERT_FALSE(banner->showingAllLines());
}

std::vector<Json> distributed(const Json& events) {
  return test::nodes(events, [](const Json& event) { return event.at("event") == "distributed"; });
}

TEST(Drag, UpwardsTakesTheBannerAlongWhileTheFingerMoves) {
  Phone phone;
  const int controller = present(phone);
  phone.run(drag(-10, "hold"));
  EXPECT_DOUBLE_EQ(number(phone, controller, "offset"), restingOffset - 10);
  phone.run(drag(-5, "hold"));
  EXPECT_DOUBLE_EQ(number(phone, controller, "offset"), restingOffset - 15);
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

TEST(Drag, ReleasedAboveTheThresholdSpringsBackAndShowsAllLines) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  const int controller = present(phone);
  phone.run(drag(-19, "release"));
  EXPECT_DOUBLE_EQ(number(phone, controller, "offset"), restingOffset);
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
  EXPECT_TRUE(containerOf(controller)->showingAllLines());
  EXPECT_EQ(phone.view(controller, "bodyLabel").at("lines"), 15);
}

TEST(Drag, SpringsBackInThreeTwentiethsOfASecond) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  present(phone);
  phone.run(drag(-19, "release"));
  const std::string start = phone.picture();
  phone.wait(0.149);
  const std::string nearlyThere = phone.picture();
  EXPECT_NE(nearlyThere, start);
  phone.wait(0.001);
  const std::string end = phone.picture();
  EXPECT_NE(end, nearlyThere);
  phone.wait(0.1);
  EXPECT_EQ(phone.picture(), end);
}

TEST(Drag, ReleasedAtTheThresholdDismisses) {
  Phone phone;
  const int controller = present(phone, {{"dismissAutomatically", false}});
  phone.run(drag(-20, "release"));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_TRUE(phone.state(controller).at("dismissNotification"));
}

TEST(Drag, CancelledCountsAsReleased) {
  Phone phone;
  const int controller = present(phone);
  phone.run(drag(-60, "cancel"));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Drag, ThatDismissesForgetsWhatWasTyped) {
  Phone phone;
  const int controller = present(phone);
  phone.run(drag(100));
  phone.wait(1);
  phone.run({{"do", "type"}, {"text", "Yes"}});
  phone.run(drag(-60));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
  EXPECT_EQ(phone.view(controller, "reply").at("text"), "");
  phone.wait(2);
  EXPECT_TRUE(test::nodes(phone.log(), [](const Json& event) { return event.at("event") == "action"; }).empty());
}

TEST(Drag, DownwardsGrowsTheBannerByAQuarterOfTheWayAtEveryMove) {
  Phone phone;
  const int controller = present(phone);
  phone.run(drag(20, "hold"));
  EXPECT_DOUBLE_EQ(number(phone, controller, "height"), resting + 5);
  phone.run(drag(20, "hold"));
  EXPECT_DOUBLE_EQ(number(phone, controller, "height"), resting + 5 + 10);
  EXPECT_DOUBLE_EQ(number(phone, controller, "offset"), restingOffset);
}

TEST(Drag, ReleasedDownwardsOpensTheBannerWhole) {
  Phone phone;
  const int controller = present(phone);
  phone.run(drag(12));
  EXPECT_DOUBLE_EQ(number(phone, controller, "height"), expanded);
  EXPECT_TRUE(phone.state(controller).at("expanded"));
  EXPECT_FALSE(phone.state(controller).at("dismissNotification"));
  EXPECT_EQ(phone.view(controller, "bodyLabel").at("measuredLines"), 3);
}

TEST(Drag, StaysBetweenTheRestingAndTheFullHeight) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  const int controller = present(phone);
  phone.run(drag(700, "hold"));
  EXPECT_DOUBLE_EQ(number(phone, controller, "height"), expanded);
  EXPECT_DOUBLE_EQ(alphaOf(phone, controller, "_buttonStackView"), 1);
  EXPECT_FALSE(phone.state(controller).at("dismissNotification"));
  phone.run(drag(-650, "hold"));
  EXPECT_DOUBLE_EQ(number(phone, controller, "height"), expanded);
}

TEST(Drag, BackToTheRestingHeightHidesTheButtons) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  const int controller = present(phone);
  BrimContainer* banner = containerOf(controller);
  banner->updateHeight(30);
  controllerOf(controller)->expandBanner(-1000, banner, false, nullptr);
  EXPECT_DOUBLE_EQ(banner->height(), resting);
  EXPECT_DOUBLE_EQ(alphaOf(phone, controller, "_buttonStackView"), 0);
  EXPECT_TRUE(phone.view(controller, "_closeButton").at("hidden"));
  EXPECT_TRUE(BrimContainer::DismissNotification());
}

TEST(Drag, FadesTheButtonsInWithTheHeightBeforeTheMove) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  const int controller = present(phone);
  phone.run(drag(40, "hold"));
  EXPECT_DOUBLE_EQ(alphaOf(phone, controller, "_buttonStackView"), 0);
  phone.run(drag(1, "hold"));
  EXPECT_NEAR(alphaOf(phone, controller, "_buttonStackView"), 10.0 / 41, 1e-9);
  EXPECT_FALSE(phone.view(controller, "_closeButton").at("hidden"));
}

TEST(Drag, UpwardsOnAPartlyOpenBannerThatHidesLinesOpensItWhole) {
  Phone phone;
  const int controller = present(phone);
  hideLinesAgain(containerOf(controller));
  phone.run(drag(60, "hold"));
  ASSERT_GT(number(phone, controller, "height"), resting);
  ASSERT_FALSE(phone.state(controller).at("expanded"));
  phone.run(drag(-100, "release"));
  EXPECT_TRUE(phone.state(controller).at("expanded"));
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

TEST(Drag, UpwardsOnAPartlyOpenBannerThatShowsItsLinesDismisses) {
  Phone phone;
  const int controller = present(phone);
  phone.run(drag(60, "hold"));
  phone.run(drag(-100, "release"));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Drag, UpwardsOnAnOpenBannerDismisses) {
  Phone phone;
  const int controller = present(phone);
  phone.run(drag(100));
  phone.wait(1);
  phone.run(drag(-30));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

TEST(Drag, WhileTheBannerLeavesChangesNothing) {
  Phone phone;
  const int controller = present(phone);
  phone.run(drag(-12, "hold"));
  test::command({{"command", "dismiss"}});
  phone.wait(0.1);
  const Json before = phone.state(controller);
  phone.run(drag(200, "hold"));
  phone.run(drag(1, "release"));
  EXPECT_EQ(phone.state(controller), before);
}

TEST(Drag, OfABannerThatHasGoneChangesNothing) {
  Phone phone;
  present(phone);
  phone.run(drag(30, "hold"));
  test::command({{"command", "dismissnoani"}});
  phone.run(drag(60, "hold"));
  phone.run(drag(1, "release"));
  EXPECT_TRUE(BrimContainer::DismissNotification());
}

// The recogniser outlives the banner's time on screen, and its last event may come then.
TEST(Drag, ThatEndsAfterTheBannerHasGoneDoesNotHoldBackLaterOnes) {
  Phone phone;
  const int controller = present(phone);
  phone.run(drag(200, "hold"));
  const auto held = controllerOf(controller);
  const auto banner = objc::retain(held->brimView());
  auto* recognizers = objc::send<NSArray*, "gestureRecognizers">(banner.get());
  const auto pan = objc::retain(objc::as<UIPanGestureRecognizer>(recognizers->objectAtIndex(1)));
  ASSERT_NE(pan, nullptr);
  test::command({{"command", "dismissnoani"}});
  objc::send<void, "panGestureHandler:">(held.get(), pan.get());
  EXPECT_TRUE(BrimContainer::DismissNotification());
}

TEST(Drag, WithoutAnythingToShowWritesOnlyTheFlag) {
  Phone phone;
  const int controller = present(phone, {{"section", "com.apple.mobilemail"}});
  BrimContainer* banner = containerOf(controller);
  ASSERT_TRUE(banner->showingAllLines());
  controllerOf(controller)->expandBanner(1000, banner, false, nullptr);
  EXPECT_DOUBLE_EQ(banner->height(), resting);
  EXPECT_FALSE(BrimContainer::DismissNotification());
}

TEST(Drag, OpensABannerWithoutControlsByElevenPointsWhereItHidesLines) {
  Phone phone;
  const int controller = present(phone, {{"section", "com.apple.mobilemail"}});
  hideLinesAgain(containerOf(controller));
  phone.run(drag(12));
  EXPECT_DOUBLE_EQ(number(phone, controller, "height"), resting + 11);
  EXPECT_FALSE(phone.state(controller).at("expanded"));
}

// The field has been faded in by the drag itself, so that nothing is left to animate.
TEST(Drag, OpensTheReplyFieldAtOnceWhereThereAreNoButtons) {
  Phone phone;
  const int controller = present(phone);
  phone.run(drag(100));
  phone.wait(0.001);
  EXPECT_TRUE(containerOf(controller)->reply()->isFirstResponder());
}

TEST(Drag, LeavesTheReplyToItsButtonWhereThereIsOne) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  const int controller = present(phone);
  phone.run(drag(100));
  phone.wait(1);
  EXPECT_FALSE(containerOf(controller)->reply()->isFirstResponder());
}

TEST(Drag, ShowsWhatPrivacyHid) {
  Phone phone({.options = {}, .settings = {{"hide_unless_expanded", true}}});
  const int controller = present(phone);
  ASSERT_EQ(phone.view(controller, "headerLabel").at("text"), "Content hidden");
  phone.run(drag(12));
  EXPECT_EQ(phone.view(controller, "headerLabel").at("text"), "Anna");
  EXPECT_EQ(phone.view(controller, "bodyLabel").at("text"), "Hello\nAnna\nhere");
}

TEST(Drag, ThatSpringsBackKeepsContentHidden) {
  Phone phone({.options = {}, .settings = {{"hide_unless_expanded", true}}});
  const int controller = present(phone);
  phone.run(drag(-12));
  EXPECT_EQ(phone.view(controller, "headerLabel").at("text"), "Content hidden");
}

struct ReadCase {
  const char* name;
  const char* section;
  int mode;
  std::size_t posts;
};

std::ostream& operator<<(std::ostream& out, const ReadCase& each) { return out << each.name; }

class ReadWhenOpened : public testing::TestWithParam<ReadCase> {};

TEST_P(ReadWhenOpened, IsForMessagesInThatModeOnly) {
  Phone phone({.options = {}, .settings = {{"messagesAutoReadMode", GetParam().mode}}});
  present(phone, {{"section", GetParam().section}, {"thread", "+491234567"}});
  phone.log();
  phone.run(drag(12));
  EXPECT_EQ(distributed(phone.log()).size(), GetParam().posts);
}

INSTANTIATE_TEST_SUITE_P(Modes, ReadWhenOpened,
                         testing::Values(ReadCase{"MessagesWhenOpened", "com.apple.MobileSMS", 1, 1},
                                         ReadCase{"MessagesWhenAnswered", "com.apple.MobileSMS", 2, 0},
                                         ReadCase{"MessagesNever", "com.apple.MobileSMS", 0, 0},
                                         ReadCase{"Mail", "com.apple.mobilemail", 1, 0}),
                         [](const auto& each) { return each.param.name; });

TEST(HomeButton, SendsABannerThatMustStayAwayWithoutAnimation) {
  Phone phone;
  const int controller = present(phone, {{"dismissAutomatically", false}});
  phone.run({{"do", "press"}, {"type", 101}, {"force", 0}});
  EXPECT_FALSE(phone.state(controller).at("brim"));
  EXPECT_TRUE(phone.state(controller).at("dismissed"));
}

TEST(HomeButton, OtherPressesLeaveTheBannerAlone) {
  Phone phone;
  const int controller = present(phone, {{"dismissAutomatically", false}});
  for (const auto& [type, force] : {std::pair{101, 1}, {101, 2}, {102, 0}, {0, 0}, {-101, 0}})
    phone.run({{"do", "press"}, {"type", type}, {"force", force}});
  phone.wait(1);
  EXPECT_TRUE(phone.state(controller).at("brim"));
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

TEST(HomeButton, LeavesABannerThatMayGoToItsTimer) {
  Phone phone;
  const int controller = present(phone);
  phone.run({{"do", "press"}, {"type", 101}, {"force", 0}});
  phone.wait(1);
  EXPECT_TRUE(phone.state(controller).at("brim"));
}

TEST(LongLook, IsKeptFromBanners) {
  Phone phone;
  const int controller = present(phone);
  phone.log();
  for (const char* kind : {"scroll", "click", "trigger"})
    phone.run({{"do", "longlook"}, {"controller", controller}, {"kind", kind}});
  EXPECT_EQ(phone.log(), Json::array());
}

TEST(LongLook, ReachesThePlatformForAControllerOutsideTheBannerWindow) {
  Phone phone;
  const int controller = present(phone);
  const auto held = controllerOf(controller);
  test::command({{"command", "dismissnoani"}});
  ASSERT_FALSE(held->isPartOfBanner());
  phone.log();
  phone.run({{"do", "longlook"}, {"controller", controller}});
  EXPECT_EQ(phone.log(), Json::array({{{"event", "longlook"}, {"controller", controller}}}));
}

TEST(BannerWindow, CanTakeTheKeyboard) {
  Phone phone;
  const int controller = present(phone);
  EXPECT_TRUE((objc::send<bool, "_canBecomeKeyWindow">(containerOf(controller)->window())));
}

TEST(BannerWindow, KnowsTheFirstStatusBarWindow) {
  Phone phone;
  const Class statusBarWindow = reinterpret_cast<Class>(objc_getClass("UIStatusBarWindow"));
  auto* shared = objc::send<UIWindow*, "brimSharedWindow">(statusBarWindow);
  ASSERT_NE(shared, nullptr);
  const auto another = objc::adopt(
      objc::send<UIWindow*, "initWithFrame:">(objc::send<id, "alloc">(statusBarWindow), CGRect{{0, 0}, {10, 10}}));
  EXPECT_EQ((objc::send<UIWindow*, "brimSharedWindow">(statusBarWindow)), shared);
  EXPECT_NE(another.get(), shared);
}

}  // namespace
