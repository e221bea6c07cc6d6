#include <gtest/gtest.h>

#include "library/view/brim_container.hpp"
#include "objc/autorelease_pool.hpp"
#include "platform/ns_number.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::Phone;

objc::Ref<BrimContainer> container(NSString* header, NSString* subHeader, NSString* body) {
  auto made = BrimContainer::make(nullptr, header, subHeader, body);
  made->setColorSet(BrimColors::withMode(lightMode));
  made->setHeaderFontSize(15);
  made->setTextFontSize(13);
  made->setTinyBannerFontSize(15);
  made->setStatusbarFontSize(15);
  made->setAppSize(40);
  return made;
}

// A banner in a superview of a phone's width, laid out.
struct Shown {
  objc::Ref<UIView> superview = UIView::withFrame<UIView>({{0, 0}, {359, 100}});
  objc::Ref<BrimContainer> banner;

  explicit Shown(objc::Ref<BrimContainer> made) : banner(std::move(made)) {
    superview->addSubview(banner);
    superview->layoutIfNeeded();
  }
};

std::string text(UILabel* label) {
  NSString* const shown = label->text();
  return shown == nullptr ? "(nil)" : shown->UTF8String();
}

TEST(Container, BuildsNothingBeforeItArrivesInASuperview) {
  const Phone phone;
  const auto banner = container("Anna"_ns, "Sub"_ns, "Hello"_ns);
  EXPECT_EQ(banner->subviews()->count(), 0u);
  EXPECT_EQ(banner->headerLabel(), nullptr);
  EXPECT_EQ(banner->reply(), nullptr);
}

TEST(Container, AcceptsNilForEveryPartOfItsContent) {
  const Phone phone;
  const Shown shown(container(nullptr, nullptr, nullptr));
  EXPECT_EQ(shown.banner->subHeaderLabel(), nullptr);
  EXPECT_EQ(shown.banner->originalHeader(), nullptr);
  EXPECT_EQ(text(shown.banner->headerLabel()), "(nil)");
}

TEST(Container, OriginalHeaderOutlivesPrivacy) {
  const Phone phone;
  auto banner = container("Anna"_ns, "Sub"_ns, "Hello"_ns);
  banner->setEnablePrivacy(true);
  const Shown shown(banner);
  EXPECT_EQ(text(shown.banner->headerLabel()), "Content hidden");
  EXPECT_STREQ(shown.banner->originalHeader()->UTF8String(), "Anna");
}

TEST(Container, OriginalHeaderOutlivesTheTinyJoin) {
  const Phone phone;
  auto banner = container("Anna"_ns, nullptr, "Hello"_ns);
  banner->setTinyBanner(true);
  const Shown shown(banner);
  EXPECT_EQ(text(shown.banner->headerLabel()), "Anna: Hello");
  EXPECT_STREQ(shown.banner->originalHeader()->UTF8String(), "Anna");
}

TEST(Container, OriginalHeaderIsACopy) {
  const Phone phone;
  const auto header = objc::retain(NSMutableString::stringWithCapacity(8));
  header->appendString("Anna"_ns);
  const auto banner = container(header, nullptr, nullptr);
  header->appendString(" changed"_ns);
  EXPECT_STREQ(banner->originalHeader()->UTF8String(), "Anna");
}

TEST(Container, DismissNotificationIsOneFlagForAllAndOnAtStart) {
  const Phone phone;
  EXPECT_TRUE(BrimContainer::DismissNotification());
  const auto early = container(nullptr, nullptr, nullptr);
  BrimContainer::setDismissNotification(false);
  const auto late = container(nullptr, nullptr, nullptr);
  EXPECT_FALSE(BrimContainer::DismissNotification());
}

TEST(Container, ColourSetIsCopiedWithItsModeOnly) {
  const Phone phone;
  const auto colors = BrimColors::withMode(blackMode);
  objc::send<void, "setUseCustomColors:">(colors.get(), true);
  const auto banner = container(nullptr, nullptr, nullptr);
  banner->setColorSet(colors);
  EXPECT_NE(banner->colorSet(), colors.get());
  EXPECT_EQ(banner->colorSet()->mode(), blackMode);
  EXPECT_FALSE(banner->colorSet()->useCustomColors());
}

TEST(Container, DelegateIsNotKeptAndGoneOnesAreNil) {
  const Phone phone;
  const auto banner = container(nullptr, nullptr, nullptr);
  {
    const auto delegate = objc::make<NSObject>();
    banner->setDelegate(delegate);
    const objc::AutoreleasePool pool;
    EXPECT_EQ((objc::send<NSObject*, "delegate">(banner.get())), delegate.get());
  }
  EXPECT_EQ((objc::send<NSObject*, "delegate">(banner.get())), nullptr);
  objc::send<void, "clearButtonPressed:">(banner.get(), static_cast<NSObject*>(nullptr));
}

TEST(Container, IsBuiltAnewAtEveryArrival) {
  const Phone phone;
  const Shown shown(container("Anna"_ns, nullptr, "Hello"_ns));
  const auto first = objc::retain(shown.banner->headerLabel());
  shown.banner->removeFromSuperview();
  shown.superview->addSubview(shown.banner);
  EXPECT_NE(shown.banner->headerLabel(), first.get());
}

TEST(Height, DependsOnTheGrabber) {
  const Phone phone;
  auto banner = container(nullptr, nullptr, nullptr);
  EXPECT_DOUBLE_EQ(banner->defaultHeight(), 16.67);
  EXPECT_DOUBLE_EQ(banner->defaultExpandedHeight(), 57.67);
  banner->setEnableGrabber(true);
  EXPECT_DOUBLE_EQ(banner->defaultHeight(), 22);
  EXPECT_DOUBLE_EQ(banner->defaultExpandedHeight(), 63);
  EXPECT_DOUBLE_EQ(banner->defaultOffset(), -70);
  EXPECT_DOUBLE_EQ(banner->defaultDismiss(), -20);
}

TEST(Height, IsFullyExpandedAtTheExpandedHeightOnly) {
  const Phone phone;
  const Shown shown(container("A"_ns, nullptr, "B"_ns));
  EXPECT_FALSE(shown.banner->isFullyExpanded());
  EXPECT_DOUBLE_EQ(shown.banner->offset(), -70);
  shown.banner->updateHeight(shown.banner->defaultExpandedHeight());
  EXPECT_TRUE(shown.banner->isFullyExpanded());
}

TEST(Height, AnimatedWithoutControlsIsReducedAndDirectIsNot) {
  const Phone phone;
  auto banner = container("A"_ns, nullptr, "B"_ns);
  banner->setEnableGrabber(true);
  const Shown shown(banner);
  shown.banner->updateHeight(63, true, nullptr);
  EXPECT_DOUBLE_EQ(shown.banner->height(), 33);
  EXPECT_FALSE(shown.banner->isFullyExpanded());
  shown.banner->updateHeight(63, false, nullptr);
  EXPECT_DOUBLE_EQ(shown.banner->height(), 63);
}

TEST(Height, CompletionOfADirectChangeNeverRuns) {
  Phone phone;
  const Shown shown(container("A"_ns, nullptr, "B"_ns));
  static int calls = 0;
  const auto count = objc::block([](bool) { ++calls; });
  shown.banner->updateTop(0, false, count);
  shown.banner->updateTop(0, false, 1, count);
  shown.banner->updateHeight(63, false, count);
  const auto homeless = container("A"_ns, nullptr, "B"_ns);
  homeless->updateTop(0, true, 1, count);
  phone.wait(3);
  EXPECT_EQ(calls, 0);
  shown.banner->updateTop(0, true, count);
  phone.wait(3);
  EXPECT_EQ(calls, 1);
}

TEST(Height, MaxLineCountOfZeroShowsEverything) {
  const Phone phone;
  const Shown shown(container("A"_ns, nullptr, "1\n2\n3\n4\n5\n6"_ns));
  shown.banner->setMaxLineCount(0);
  shown.superview->layoutIfNeeded();
  EXPECT_EQ(shown.banner->bodyLabel()->measuredNumberOfLines(), 6u);
  EXPECT_TRUE(shown.banner->showingAllLines());
}

TEST(Height, AnimationsLastThreeTwentiethsOfASecond) {
  Phone phone;
  const Shown shown(container("A"_ns, nullptr, "B"_ns));
  static int calls = 0;
  const auto count = objc::block([](bool finished) { calls += finished ? 1 : 0; });
  shown.banner->updateTop(0, true, count);
  shown.banner->updateHeight(63, true, count);
  phone.wait(0.149);
  EXPECT_EQ(calls, 0);
  phone.wait(0.002);
  EXPECT_EQ(calls, 2);
}

TEST(Height, AnimatedTopMovesInALaterTurn) {
  Phone phone;
  const Shown shown(container("A"_ns, nullptr, "B"_ns));
  shown.banner->updateTop(0, true, nullptr);
  EXPECT_DOUBLE_EQ(shown.banner->offset(), -70);
  phone.wait(0);
  EXPECT_DOUBLE_EQ(shown.banner->offset(), 0);
}

TEST(Height, MaxLineCountBelongsToTheHeaderOfATinyBanner) {
  const Phone phone;
  auto banner = container("A"_ns, nullptr, "1\n2\n3\n4"_ns);
  banner->setTinyBanner(true);
  const Shown shown(banner);
  EXPECT_EQ(shown.banner->headerLabel()->measuredNumberOfLines(), 1u);
  shown.banner->setMaxLineCount(0);
  shown.superview->layoutIfNeeded();
  EXPECT_EQ(shown.banner->headerLabel()->measuredNumberOfLines(), 4u);
}

TEST(Height, MaxLineCountBeforeTheLayoutIsUsedByIt) {
  const Phone phone;
  auto banner = container("A"_ns, nullptr, "1\n2\n3\n4"_ns);
  EXPECT_FALSE(banner->showingAllLines());
  banner->setMaxLineCount(3);
  EXPECT_TRUE(banner->showingAllLines());
  const Shown shown(banner);
  EXPECT_EQ(shown.banner->bodyLabel()->measuredNumberOfLines(), 3u);
}

TEST(ContinuousUpdate, AppendsALine) {
  const Phone phone;
  const Shown shown(container("Anna"_ns, nullptr, "Hi"_ns));
  shown.banner->updateForContinuousNotification("How are you?"_ns);
  EXPECT_EQ(text(shown.banner->bodyLabel()), "Hi\nHow are you?");
}

TEST(ContinuousUpdate, RebuildsTheTinyLine) {
  const Phone phone;
  auto banner = container("Anna"_ns, nullptr, "Hi"_ns);
  banner->setTinyBanner(true);
  const Shown shown(banner);
  shown.banner->updateForContinuousNotification("Later"_ns);
  EXPECT_EQ(text(shown.banner->headerLabel()), "Anna: Hi\nLater");
}

TEST(ContinuousUpdate, KeepsTheTinyLinesHeaderBold) {
  Phone phone({.options = {}, .settings = {{"tinyBanner", true}}});
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hi"}, {"dismissAutomatically", false}});
  phone.run({{"do", "update"}, {"controller", controller}, {"message", "Later"}});
  const test::Json runs = phone.view(controller, "headerLabel").at("runs");
  ASSERT_EQ(runs.size(), 2u);
  EXPECT_EQ(runs[0].at("text"), "Anna: ");
  EXPECT_EQ(runs[0].at("weight"), "bold");
  EXPECT_EQ(runs[1].at("text"), "Hi\nLater");
  EXPECT_EQ(runs[1].at("weight"), "regular");
}

TEST(ContinuousUpdate, WithoutABodyStartsFromTheWordForNothing) {
  const Phone phone;
  const Shown shown(container("Anna"_ns, nullptr, nullptr));
  shown.banner->updateForContinuousNotification("Later"_ns);
  EXPECT_EQ(text(shown.banner->bodyLabel()), "(null)\nLater");
}

TEST(ContinuousUpdate, BeforeTheLayoutIsShownByIt) {
  const Phone phone;
  auto banner = container("Anna"_ns, nullptr, "Hi"_ns);
  banner->setMaxLineCount(0);
  banner->updateForContinuousNotification("Later"_ns);
  const Shown shown(banner);
  EXPECT_EQ(text(shown.banner->bodyLabel()), "Hi\nLater");
}

TEST(ContinuousUpdate, ShowContentOfATinyBannerAddsItsHeader) {
  const Phone phone;
  auto banner = container("Anna"_ns, nullptr, "Hi"_ns);
  banner->setTinyBanner(true);
  banner->setEnablePrivacy(true);
  const Shown shown(banner);
  ASSERT_EQ(text(shown.banner->headerLabel()), "Content hidden");
  shown.banner->showContent();
  EXPECT_EQ(text(shown.banner->headerLabel()), "Anna: \nAnna");
}

TEST(ContinuousUpdate, ShowContentGivesBackWhatPrivacyHid) {
  const Phone phone;
  auto banner = container("Anna"_ns, "Sub"_ns, "Hello"_ns);
  banner->setEnablePrivacy(true);
  const Shown shown(banner);
  shown.banner->showContent();
  EXPECT_EQ(text(shown.banner->headerLabel()), "Anna");
  EXPECT_EQ(text(shown.banner->bodyLabel()), "Hello");
  EXPECT_EQ(shown.banner->subHeaderLabel(), nullptr);
}

TEST(Overlay, StaysHiddenWithoutBackgroundBlur) {
  Phone phone;
  const Shown shown(container("A"_ns, nullptr, "B"_ns));
  shown.banner->setOverlayWithAnimation(1);
  phone.wait(1);
  const UIView* const backdrop = static_cast<UIView*>(shown.superview->subviews()->objectAtIndex(0));
  EXPECT_TRUE(backdrop->isHidden());
  EXPECT_DOUBLE_EQ(backdrop->alpha(), 0);
}

TEST(Buttons, WithoutButtonsTheAlphaIsTheReplyViews) {
  const Phone phone;
  auto banner = container("A"_ns, nullptr, "B"_ns);
  banner->setCanReply(true);
  const Shown shown(banner);
  shown.banner->setButtonsAlpha(0.5);
  EXPECT_DOUBLE_EQ(shown.banner->reply()->alpha(), 0.5);
  EXPECT_FALSE(shown.banner->reply()->isHidden());
}

TEST(ColourSet, ThatIsCustomPinsTheBanner) {
  Phone phone;
  const Shown shown(container("A"_ns, nullptr, "B"_ns));
  BrimColors* const pinned = shown.banner->colorSet();
  objc::send<void, "setUseCustomColors:">(pinned, true);
  shown.banner->updateColorMode(BrimColors::withMode(darkMode));
  phone.wait(1);
  EXPECT_EQ(shown.banner->colorSet(), pinned);
  CGFloat red = -1;
  shown.banner->headerLabel()->textColor()->getRed(&red, nullptr, nullptr, nullptr);
  EXPECT_DOUBLE_EQ(red, 0);
}

}  // namespace
