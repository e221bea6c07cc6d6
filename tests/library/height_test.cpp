#include <gtest/gtest.h>

#include "tests/library/laid_out_banner.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::LaidOutBanner;
using test::makeBanner;
using test::Phone;

TEST(Height, DependsOnTheGrabber) {
  const Phone phone;
  auto banner = makeBanner(nullptr, nullptr, nullptr);
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
  const LaidOutBanner laidOut(makeBanner("A"_ns, nullptr, "B"_ns));
  EXPECT_FALSE(laidOut.banner->isFullyExpanded());
  EXPECT_DOUBLE_EQ(laidOut.banner->offset(), -70);
  laidOut.banner->updateHeight(laidOut.banner->defaultExpandedHeight());
  EXPECT_TRUE(laidOut.banner->isFullyExpanded());
}

// The constants of the constraints below the body, the picture and the header.
std::vector<CGFloat> heights(BrimContainer* banner) {
  std::vector<CGFloat> constants;
  for (const char* name : {"_brimHeightConstraint", "_brimAlternateHeightConstraint", "_brimOtherHeightConstraint"})
    constants.push_back(objc::send<CGFloat, "constant">(test::instanceVariable<NSObject>(banner, name)));
  return constants;
}

TEST(Height, IsTheConstantOfAllThreeConstraints) {
  const Phone phone;
  auto banner = makeBanner("A"_ns, nullptr, "B"_ns);
  banner->setEnableGrabber(true);
  banner->setCanReply(true);
  const LaidOutBanner laidOut(banner);
  EXPECT_EQ(heights(banner), std::vector<CGFloat>(3, 22));
  laidOut.banner->updateHeight(40, false, nullptr);
  EXPECT_EQ(heights(banner), std::vector<CGFloat>(3, 40));
  laidOut.banner->updateHeight(63, true, nullptr);
  EXPECT_EQ(heights(banner), std::vector<CGFloat>(3, 63));
}

TEST(Height, IsReducedForABannerWithoutControlsOnlyIfAnimated) {
  const Phone phone;
  auto banner = makeBanner("A"_ns, nullptr, "B"_ns);
  banner->setEnableGrabber(true);
  const LaidOutBanner laidOut(banner);
  laidOut.banner->updateHeight(63, true, nullptr);
  EXPECT_EQ(heights(banner), std::vector<CGFloat>(3, 33));
  EXPECT_FALSE(laidOut.banner->isFullyExpanded());
  laidOut.banner->updateHeight(63, false, nullptr);
  EXPECT_EQ(heights(banner), std::vector<CGFloat>(3, 63));
}

TEST(Height, CompletionRunsOnlyAfterAnAnimation) {
  Phone phone;
  const LaidOutBanner laidOut(makeBanner("A"_ns, nullptr, "B"_ns));
  static int calls = 0;
  const auto count = objc::block([](bool) { ++calls; });
  laidOut.banner->updateTop(0, false, count);
  laidOut.banner->updateTop(0, false, 1, count);
  laidOut.banner->updateHeight(63, false, count);
  const auto detached = makeBanner("A"_ns, nullptr, "B"_ns);
  detached->updateTop(0, true, 1, count);
  phone.wait(3);
  EXPECT_EQ(calls, 0);
  laidOut.banner->updateTop(0, true, count);
  phone.wait(3);
  EXPECT_EQ(calls, 1);
}

TEST(Height, MaxLineCountOfZeroMeansNoLimit) {
  const Phone phone;
  const LaidOutBanner laidOut(makeBanner("A"_ns, nullptr, "1\n2\n3\n4\n5\n6"_ns));
  laidOut.banner->setMaxLineCount(2);
  laidOut.superview->layoutIfNeeded();
  EXPECT_EQ(laidOut.banner->bodyLabel()->measuredNumberOfLines(), 2u);
  laidOut.banner->setMaxLineCount(0);
  laidOut.superview->layoutIfNeeded();
  EXPECT_EQ(laidOut.banner->bodyLabel()->measuredNumberOfLines(), 6u);
  EXPECT_TRUE(laidOut.banner->showingAllLines());
}

TEST(Height, AnimationsLast150Milliseconds) {
  Phone phone;
  const LaidOutBanner laidOut(makeBanner("A"_ns, nullptr, "B"_ns));
  static int calls = 0;
  const auto count = objc::block([](bool finished) { calls += finished ? 1 : 0; });
  laidOut.banner->updateTop(0, true, count);
  laidOut.banner->updateHeight(63, true, count);
  phone.wait(0.149);
  EXPECT_EQ(calls, 0);
  phone.wait(0.002);
  EXPECT_EQ(calls, 2);
}

TEST(Height, AnimatedTopChangesAsynchronously) {
  Phone phone;
  const LaidOutBanner laidOut(makeBanner("A"_ns, nullptr, "B"_ns));
  laidOut.banner->updateTop(0, true, nullptr);
  EXPECT_DOUBLE_EQ(laidOut.banner->offset(), -70);
  phone.wait(0);
  EXPECT_DOUBLE_EQ(laidOut.banner->offset(), 0);
}

TEST(Height, MaxLineCountAppliesToTheHeaderOfATinyBanner) {
  const Phone phone;
  auto banner = makeBanner("A"_ns, nullptr, "1\n2\n3\n4"_ns);
  banner->setTinyBanner(true);
  const LaidOutBanner laidOut(banner);
  EXPECT_EQ(laidOut.banner->headerLabel()->measuredNumberOfLines(), 1u);
  laidOut.banner->setMaxLineCount(0);
  laidOut.superview->layoutIfNeeded();
  EXPECT_EQ(laidOut.banner->headerLabel()->measuredNumberOfLines(), 4u);
}

TEST(Height, MaxLineCountSetBeforeTheFirstLayoutIsApplied) {
  const Phone phone;
  auto banner = makeBanner("A"_ns, nullptr, "1\n2\n3\n4"_ns);
  EXPECT_FALSE(banner->showingAllLines());
  banner->setMaxLineCount(3);
  EXPECT_TRUE(banner->showingAllLines());
  const LaidOutBanner laidOut(banner);
  EXPECT_EQ(laidOut.banner->bodyLabel()->measuredNumberOfLines(), 3u);
}

}  // namespace
