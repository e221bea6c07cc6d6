#include <gtest/gtest.h>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_number.hpp"
#include "tests/library/phone.hpp"
#include "tests/library/shown_banner.hpp"

namespace {

using test::container;
using test::Phone;
using test::Shown;
using test::text;

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

TEST(Container, ColorSetIsCopiedWithItsModeOnly) {
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

TEST(ColorSet, ThatIsCustomPinsTheBanner) {
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
