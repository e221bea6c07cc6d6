#include <gtest/gtest.h>

#include "tests/library/phone.hpp"
#include "tests/library/shown_banner.hpp"

namespace {

using test::container;
using test::Phone;
using test::Shown;

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

}  // namespace
