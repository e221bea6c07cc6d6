#include <gtest/gtest.h>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_number.hpp"
#include "tests/library/laid_out_banner.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::LaidOutBanner;
using test::makeBanner;
using test::Phone;
using test::text;

TEST(Container, CreatesNoSubviewsBeforeItHasASuperview) {
  const Phone phone;
  const auto banner = makeBanner("Anna"_ns, "Sub"_ns, "Hello"_ns);
  EXPECT_EQ(banner->subviews()->count(), 0u);
  EXPECT_EQ(banner->headerLabel(), nullptr);
  EXPECT_EQ(banner->reply(), nullptr);
}

TEST(Container, AcceptsNilForEveryText) {
  const Phone phone;
  const LaidOutBanner laidOut(makeBanner(nullptr, nullptr, nullptr));
  EXPECT_EQ(laidOut.banner->subHeaderLabel(), nullptr);
  EXPECT_EQ(laidOut.banner->originalHeader(), nullptr);
  EXPECT_EQ(text(laidOut.banner->headerLabel()), "(nil)");
}

TEST(Container, PrivacyDoesNotChangeTheOriginalHeader) {
  const Phone phone;
  auto banner = makeBanner("Anna"_ns, "Sub"_ns, "Hello"_ns);
  banner->setEnablePrivacy(true);
  const LaidOutBanner laidOut(banner);
  EXPECT_EQ(text(laidOut.banner->headerLabel()), "Content hidden");
  EXPECT_STREQ(laidOut.banner->originalHeader()->UTF8String(), "Anna");
}

TEST(Container, TinyLineDoesNotChangeTheOriginalHeader) {
  const Phone phone;
  auto banner = makeBanner("Anna"_ns, nullptr, "Hello"_ns);
  banner->setTinyBanner(true);
  const LaidOutBanner laidOut(banner);
  EXPECT_EQ(text(laidOut.banner->headerLabel()), "Anna: Hello");
  EXPECT_STREQ(laidOut.banner->originalHeader()->UTF8String(), "Anna");
}

TEST(Container, OriginalHeaderIsACopy) {
  const Phone phone;
  const auto header = objc::retain(NSMutableString::stringWithCapacity(8));
  header->appendString("Anna"_ns);
  const auto banner = makeBanner(header, nullptr, nullptr);
  header->appendString(" changed"_ns);
  EXPECT_STREQ(banner->originalHeader()->UTF8String(), "Anna");
}

TEST(Container, DismissNotificationIsSharedAndInitiallyTrue) {
  const Phone phone;
  EXPECT_TRUE(BrimContainer::DismissNotification());
  const auto early = makeBanner(nullptr, nullptr, nullptr);
  BrimContainer::setDismissNotification(false);
  const auto late = makeBanner(nullptr, nullptr, nullptr);
  EXPECT_FALSE(BrimContainer::DismissNotification());
}

TEST(Container, ColorSetIsCopiedWithoutCustomColors) {
  const Phone phone;
  const auto colors = BrimColors::withMode(blackMode);
  objc::send<void, "setUseCustomColors:">(colors.get(), true);
  const auto banner = makeBanner(nullptr, nullptr, nullptr);
  banner->setColorSet(colors);
  EXPECT_NE(banner->colorSet(), colors.get());
  EXPECT_EQ(banner->colorSet()->mode(), blackMode);
  EXPECT_FALSE(banner->colorSet()->useCustomColors());
}

TEST(Container, DelegateIsAZeroingWeakReference) {
  const Phone phone;
  const auto banner = makeBanner(nullptr, nullptr, nullptr);
  {
    const auto delegate = objc::make<NSObject>();
    banner->setDelegate(delegate);
    const objc::AutoreleasePool pool;
    EXPECT_EQ((objc::send<NSObject*, "delegate">(banner.get())), delegate.get());
  }
  EXPECT_EQ((objc::send<NSObject*, "delegate">(banner.get())), nullptr);
  objc::send<void, "clearButtonPressed:">(banner.get(), static_cast<NSObject*>(nullptr));
}

TEST(Container, CreatesItsSubviewsAgainWhenItIsAddedAgain) {
  const Phone phone;
  const LaidOutBanner laidOut(makeBanner("Anna"_ns, nullptr, "Hello"_ns));
  const auto first = objc::retain(laidOut.banner->headerLabel());
  laidOut.banner->removeFromSuperview();
  laidOut.superview->addSubview(laidOut.banner);
  EXPECT_NE(laidOut.banner->headerLabel(), first.get());
}

TEST(Overlay, StaysHiddenWithoutBackgroundBlur) {
  Phone phone;
  const LaidOutBanner laidOut(makeBanner("A"_ns, nullptr, "B"_ns));
  laidOut.banner->setOverlayWithAnimation(1);
  phone.wait(1);
  const UIView* const backdrop = static_cast<UIView*>(laidOut.superview->subviews()->objectAtIndex(0));
  EXPECT_TRUE(backdrop->isHidden());
  EXPECT_DOUBLE_EQ(backdrop->alpha(), 0);
}

TEST(Buttons, AlphaAppliesToTheReplyFieldIfThereAreNoButtons) {
  const Phone phone;
  auto banner = makeBanner("A"_ns, nullptr, "B"_ns);
  banner->setCanReply(true);
  const LaidOutBanner laidOut(banner);
  const auto* background = test::instanceVariable<UIView>(laidOut.banner, "_replyBg");
  for (const CGFloat alpha : {0.0, 0.5, 1.0, 0.25, 0.0}) {
    laidOut.banner->setButtonsAlpha(alpha);
    for (const UIView* view : {static_cast<const UIView*>(laidOut.banner->reply()), background}) {
      EXPECT_DOUBLE_EQ(view->alpha(), alpha);
      EXPECT_EQ(view->isHidden(), alpha == 0);
    }
  }
}

TEST(ColorSet, IgnoresColorModeUpdatesIfItHasCustomColors) {
  Phone phone;
  const LaidOutBanner laidOut(makeBanner("A"_ns, nullptr, "B"_ns));
  BrimColors* const customColors = laidOut.banner->colorSet();
  objc::send<void, "setUseCustomColors:">(customColors, true);
  laidOut.banner->updateColorMode(BrimColors::withMode(darkMode));
  phone.wait(1);
  EXPECT_EQ(laidOut.banner->colorSet(), customColors);
  CGFloat red = -1;
  laidOut.banner->headerLabel()->textColor()->getRed(&red, nullptr, nullptr, nullptr);
  EXPECT_DOUBLE_EQ(red, 0);
}

}  // namespace
