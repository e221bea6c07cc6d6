// UIVisualEffectView.
#include "platform/ui_visual_effect_view.hpp"

#include "simulator/uikit/rendering/renderer.hpp"
#include "tests/uikit/content.hpp"

namespace test {

namespace {

// The left half of the screen is black, the right half white.
class VisualEffectView : public Stage {
 public:
  VisualEffectView() {
    auto half = addView(window, {{100, 0}, {1000, 1000}});
    half->setBackgroundColor(UIColor::withRed(1, 1, 1, 1));
  }

  objc::Ref<UIVisualEffectView> addPane(UIBlurEffectStyle style) const {
    auto pane = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(style));
    pane->setFrame({{50, 50}, {100, 100}});
    window->addSubview(pane);
    return pane;
  }
  static int brightness(int x, int y) { return static_cast<int>(uikit::renderScreen(1)->pixel(x, y) & 0xff); }

  objc::Ref<UIWindow> window = makeWindow();
};

TEST_F(VisualEffectView, BlursWhatLiesBehind) {
  EXPECT_EQ(brightness(99, 100), 0);
  EXPECT_EQ(brightness(100, 100), 255);
  addPane(UIBlurEffectStyle::Light);
  EXPECT_LT(std::abs(brightness(99, 100) - brightness(100, 100)), 30);
  EXPECT_EQ(brightness(99, 160), 0);
}

TEST_F(VisualEffectView, KeepsToItsRoundedCorners) {
  auto pane = addPane(UIBlurEffectStyle::Light);
  EXPECT_GT(brightness(51, 51), 0);
  pane->layer()->setCornerRadius(40);
  pane->setClipsToBounds(true);
  EXPECT_EQ(brightness(51, 51), 0);
  EXPECT_GT(brightness(100, 55), 0);
}

TEST_F(VisualEffectView, HasItsStyle) {
  auto pane = addPane(UIBlurEffectStyle::Dark);
  const int dark = brightness(140, 100);
  pane->removeFromSuperview();
  addPane(UIBlurEffectStyle::Light);
  EXPECT_GT(brightness(140, 100), dark);
}

TEST_F(VisualEffectView, FollowsTheAppearanceInTheRegularStyle) {
  addPane(UIBlurEffectStyle::Regular);
  const int light = brightness(140, 100);
  uikit::switchAppearance(UIUserInterfaceStyle::Dark);
  EXPECT_LT(brightness(140, 100), light);
}

TEST_F(VisualEffectView, LetsTheSharpContentThroughAtItsOpacity) {
  auto pane = addPane(UIBlurEffectStyle::Dark);
  const int opaque = brightness(140, 100);
  pane->setAlpha(0.5);
  EXPECT_NEAR(brightness(140, 100), (opaque + 255) / 2.0, 6);
  pane->setAlpha(0);
  EXPECT_EQ(brightness(140, 100), 255);
}

TEST_F(VisualEffectView, BlursNothingWithoutAnEffect) {
  auto pane = addPane(UIBlurEffectStyle::Light);
  objc::send<void, "setEffect:">(pane.get(), static_cast<UIBlurEffect*>(nullptr));
  EXPECT_EQ(brightness(99, 100), 0);
  EXPECT_FALSE(described(pane).contains("blur"));
}

TEST_F(VisualEffectView, HoldsItsContentInAViewOfItsSize) {
  auto pane = addPane(UIBlurEffectStyle::Light);
  UIView* content = objc::send<UIView*, "contentView">(pane.get());
  EXPECT_EQ(content->superview(), pane.get());
  EXPECT_EQ(content, (objc::send<UIView*, "contentView">(pane.get())));
  pane->setFrame({{0, 0}, {70, 80}});
  EXPECT_EQ(content->frame(), (CGRect{{0, 0}, {70, 80}}));
}

TEST_F(VisualEffectView, TellsItsStyle) {
  EXPECT_EQ(described(addPane(UIBlurEffectStyle::Regular)).at("blur"), 4);
  EXPECT_EQ(described(addPane(UIBlurEffectStyle::Dark)).at("blur"), 2);
}

}  // namespace

}  // namespace test
