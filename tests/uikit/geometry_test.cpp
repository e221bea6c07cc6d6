#include "simulator/uikit/views/view_geometry.hpp"

#include <limits>

#include "tests/uikit/uikit_fixture.hpp"

namespace test {

namespace {

class Geometry : public UIKitTest {};

CGPoint centerOf(UIView* view) { return objc::send<CGPoint, "center">(view); }

CGRect resizedFrame(NSUInteger mask, CGRect frame, CGSize from, CGSize to) {
  const auto parent = UIView::withFrame<UIView>({{}, from});
  const auto child = UIKitTest::addView(parent, frame);
  child->setAutoresizingMask(mask);
  parent->setFrame({{}, to});
  return child->frame();
}

}  // namespace

TEST_F(Geometry, FrameReadsBackExactly) {
  const auto view = UIView::withFrame<UIView>({{16.67, -70.1}, {5.33, 0.3}});
  EXPECT_EQ(view->frame(), (CGRect{{16.67, -70.1}, {5.33, 0.3}}));
  EXPECT_EQ(view->bounds(), (CGRect{{}, {5.33, 0.3}}));
}

TEST_F(Geometry, CenterFollowsTheFrameAndMovesIt) {
  const auto view = UIView::withFrame<UIView>({{10, 20}, {30, 40}});
  EXPECT_EQ(centerOf(view), (CGPoint{25, 40}));
  objc::send<void, "setCenter:">(view.get(), CGPoint{100, 100});
  EXPECT_EQ(view->frame(), (CGRect{{85, 80}, {30, 40}}));
}

TEST_F(Geometry, BoundsGrowAroundTheCenter) {
  const auto view = UIView::withFrame<UIView>({{10, 10}, {20, 20}});
  objc::send<void, "setBounds:">(view.get(), CGRect{{5, 5}, {40, 10}});
  EXPECT_EQ(view->frame(), (CGRect{{0, 15}, {40, 10}}));
}

TEST_F(Geometry, NegativeSizesAreNormalizedAndNonNumbersIgnored) {
  const auto view = UIView::withFrame<UIView>({{10, 10}, {-4, 6}});
  EXPECT_EQ(view->frame(), (CGRect{{6, 10}, {4, 6}}));
  view->setFrame({{std::numeric_limits<double>::quiet_NaN(), 0}, {1, 1}});
  EXPECT_EQ(view->frame(), (CGRect{{6, 10}, {4, 6}}));
}

TEST_F(Geometry, ConvertsBetweenViewsAndScrolledBounds) {
  const auto root = UIView::withFrame<UIView>({{}, {300, 300}});
  const auto left = addView(root, {{10, 10}, {100, 100}});
  const auto right = addView(root, {{150, 50}, {100, 100}});
  const auto inner = addView(right, {{5, 5}, {10, 10}});
  objc::send<void, "setBounds:">(right.get(), CGRect{{0, 20}, {100, 100}});
  const auto converted = objc::send<CGPoint, "convertPoint:toView:">(inner.get(), CGPoint{1, 1}, left.get());
  EXPECT_EQ(converted, (CGPoint{146, 26}));
  const auto convertedBack = objc::send<CGPoint, "convertPoint:fromView:">(inner.get(), converted, left.get());
  EXPECT_EQ(convertedBack, (CGPoint{1, 1}));
}

TEST_F(Geometry, ConvertsToTheWindowIfTheOtherViewIsNil) {
  const auto window = makeWindow();
  window->setFrame({{7, 9}, {100, 100}});
  const auto view = addView(window, {{10, 20}, {30, 40}});
  const auto converted =
      objc::send<CGRect, "convertRect:toView:">(view.get(), view->bounds(), static_cast<UIView*>(nullptr));
  EXPECT_EQ(converted, (CGRect{{10, 20}, {30, 40}}));
  EXPECT_EQ(uikit::frameOnScreen(view), (CGRect{{17, 29}, {30, 40}}));
}

TEST_F(Geometry, FlexibleSizeFollowsTheSuperview) {
  EXPECT_EQ(resizedFrame(UIViewAutoresizingFlexibleSize, {{10, 10}, {80, 30}}, {100, 50}, {150, 70}),
            (CGRect{{10, 10}, {130, 50}}));
}

TEST_F(Geometry, FlexibleSizeGrowsFromZero) {
  EXPECT_EQ(resizedFrame(UIViewAutoresizingFlexibleSize, {}, {}, {150, 70}), (CGRect{{}, {150, 70}}));
}

TEST_F(Geometry, FlexibleMarginKeepsTheOtherSide) {
  EXPECT_EQ(resizedFrame(uikit::FlexibleLeftMargin, {{60, 0}, {30, 10}}, {100, 10}, {150, 10}),
            (CGRect{{110, 0}, {30, 10}}));
  EXPECT_EQ(resizedFrame(uikit::FlexibleRightMargin, {{60, 0}, {30, 10}}, {100, 10}, {150, 10}),
            (CGRect{{60, 0}, {30, 10}}));
}

TEST_F(Geometry, FlexibleMarginsShareTheChangeInProportion) {
  EXPECT_EQ(
      resizedFrame(uikit::FlexibleLeftMargin | uikit::FlexibleRightMargin, {{30, 0}, {60, 10}}, {100, 10}, {140, 10}),
      (CGRect{{60, 0}, {60, 10}}));
}

TEST_F(Geometry, ViewsPlacedByConstraintsAreNotAutoresized) {
  const auto parent = UIView::withFrame<UIView>({{}, {100, 100}});
  const auto child = addView(parent, {{}, {100, 100}});
  child->setAutoresizingMask(UIViewAutoresizingFlexibleSize);
  child->setTranslatesAutoresizingMaskIntoConstraints(false);
  parent->setFrame({{}, {200, 200}});
  EXPECT_EQ(child->frame(), (CGRect{{}, {100, 100}}));
}

TEST_F(Geometry, SafeAreaIsTheOverlapWithTheInsetsOfTheDevice) {
  const auto window = makeWindow();
  EXPECT_EQ(window->safeAreaInsets(), (UIEdgeInsets{44, 0, 34, 0}));
  EXPECT_EQ(addView(window, {{0, 10}, {375, 792}})->safeAreaInsets(), (UIEdgeInsets{34, 0, 24, 0}));
  EXPECT_EQ(addView(window, {{0, 100}, {375, 100}})->safeAreaInsets(), UIEdgeInsets{});
  EXPECT_EQ(UIView::withFrame<UIView>({{}, {375, 812}})->safeAreaInsets(), UIEdgeInsets{});
}

TEST_F(Geometry, SafeAreaWithoutRoundedCornersIsTheStatusBar) {
  uikit::Environment environment;
  environment.device = *base::findDeviceProfile("iphone-8");
  uikit::setEnvironment(environment);
  EXPECT_EQ(makeWindow()->safeAreaInsets(), (UIEdgeInsets{20, 0, 0, 0}));
}

TEST(DeviceProfiles, UnknownNameHasNoProfile) {
  EXPECT_EQ(base::findDeviceProfile("toaster"), nullptr);
  EXPECT_EQ(base::deviceProfiles().size(), 4U);
  EXPECT_EQ(base::defaultDeviceProfile().name, "iphone-x");
}

}  // namespace test
