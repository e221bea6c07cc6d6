#include "simulator/uikit/rendering/damage.hpp"

#include "platform/ui_label.hpp"
#include "platform/ui_visual_effect_view.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view_record.hpp"
#include "simulator/uikit/views/window.hpp"
#include "tests/uikit/view_content.hpp"

namespace test {

namespace {

class Damage : public UIKitTest {
 public:
  static UIView* addRed(UIView* parent, CGRect frame) {
    const auto view = addView(parent, frame);
    CGColor value = {{1, 0, 0, 1}};
    view->layer()->setBackgroundColor(&value);
    return view;
  }

  void addBackdrop(CGRect frame) const {
    const auto backdrop = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(UIBlurEffectStyle::Light));
    backdrop->setFrame(frame);
    window->addSubview(backdrop);
  }

  // Returns "X,Y WIDTHxHEIGHT" for each rectangle that changed since the last call, at scale 1.
  std::string takeDamage() {
    uikit::ScreenContents after = contents();
    const drawing::RegionHandle region = uikit::differingPixels(previous_, after);
    previous_ = std::move(after);
    std::string text;
    for (int index = 0; index < cairo_region_num_rectangles(region.get()); ++index) {
      cairo_rectangle_int_t part;
      cairo_region_get_rectangle(region.get(), index, &part);
      text += (text.empty() ? "" : " ") + std::to_string(part.x) + "," + std::to_string(part.y) + " " +
              std::to_string(part.width) + "x" + std::to_string(part.height);
    }
    return text;
  }

  objc::Ref<UIWindow> window = makeWindow();

 private:
  static uikit::ScreenContents contents() {
    uikit::layoutWindows();
    const CGSize screen = uikit::environment().device.screen;
    return uikit::contentsOfScreen(drawing::Canvas({screen.width, screen.height}, 1));
  }

  uikit::ScreenContents previous_;
};

}  // namespace

TEST_F(Damage, IsEmptyWithoutAChange) {
  addRed(window, {{10, 10}, {20, 20}});
  takeDamage();
  uikit::setNeedsLayout(window);
  EXPECT_EQ(takeDamage(), "");
}

TEST_F(Damage, CoversTheOldAndNewFrameOfAMovedView) {
  UIView* view = addRed(window, {{10, 10}, {20, 20}});
  takeDamage();
  view->setFrame({{100, 10.5}, {20, 20}});
  EXPECT_EQ(takeDamage(), "10,10 20x20 100,10 20x20 100,30 20x1");
}

TEST_F(Damage, CoversOnlyTheAddedOrRemovedView) {
  addRed(window, {{10, 10}, {20, 20}});
  UIView* view = addRed(window, {{50, 10}, {20, 20}});
  addRed(window, {{90, 10}, {20, 20}});
  takeDamage();
  view->removeFromSuperview();
  EXPECT_EQ(takeDamage(), "50,10 20x20");
  addRed(window, {{50, 50}, {20, 20}});
  EXPECT_EQ(takeDamage(), "50,50 20x20");
}

TEST_F(Damage, CoversViewsWhoseOrderChanged) {
  UIView* lower = addRed(window, {{10, 10}, {20, 20}});
  addRed(window, {{20, 20}, {20, 20}});
  takeDamage();
  window->bringSubviewToFront(lower);
  EXPECT_EQ(takeDamage(), "10,10 20x10 10,20 30x10 20,30 20x10");
}

TEST_F(Damage, CoversTheSubviewsOfAViewWhoseOpacityChanged) {
  const auto container = addView(window, {{10, 10}, {20, 20}});
  addRed(container, {{100, 0}, {5, 5}});
  takeDamage();
  container->setAlpha(0.5);
  EXPECT_EQ(takeDamage(), "110,10 5x5");
}

TEST_F(Damage, CoversContentThatClippingRemoves) {
  const auto container = addView(window, {{10, 10}, {20, 20}});
  addRed(container, {{10, 0}, {50, 5}});
  takeDamage();
  container->setClipsToBounds(true);
  EXPECT_EQ(takeDamage(), "10,10 60x5 10,15 20x15");
}

TEST_F(Damage, IsEmptyForAnInvisibleView) {
  UIView* view = addRed(window, {{10, 10}, {20, 20}});
  view->setHidden(true);
  takeDamage();
  view->setFrame({{50, 50}, {20, 20}});
  EXPECT_EQ(takeDamage(), "");
  const auto empty = addView(window, {{0, 0}, {300, 300}});
  takeDamage();
  empty->setFrame({{1, 1}, {300, 300}});
  EXPECT_EQ(takeDamage(), "");
}

TEST_F(Damage, CoversALabelWhoseTextChanged) {
  auto label = UIView::withFrame<UILabel>({{100, 100}, {100, 20}});
  label->setText(string("one"));
  window->addSubview(label);
  takeDamage();
  label->setText(string("two"));
  // The margin around the label is the font size, because glyphs can extend beyond their line.
  EXPECT_EQ(takeDamage(), "83,83 134x54");
}

TEST_F(Damage, CoversALabelWhoseDirectionChanged) {
  auto label = UIView::withFrame<UILabel>({{100, 100}, {100, 20}});
  label->setText(string("123"));
  window->addSubview(label);
  takeDamage();
  objc::send<void, "setSemanticContentAttribute:">(label.get(), UISemanticContentAttribute::ForceRightToLeft);
  EXPECT_NE(takeDamage(), "");
}

TEST_F(Damage, CoversTheWholeCornerOfAClippingView) {
  const auto container = addView(window, {{100, 100}, {80, 80}});
  container->setClipsToBounds(true);
  container->layer()->setCornerRadius(20);
  addRed(container, {{0, 0}, {80, 80}});
  UIView* view = addRed(window, {{300, 10}, {5, 5}});
  takeDamage();
  view->setFrame({{105, 105}, {5, 5}});
  EXPECT_EQ(takeDamage(), "300,10 5x5 100,100 31x31");
  view->setFrame({{140, 105}, {5, 5}});
  EXPECT_EQ(takeDamage(), "100,100 31x5 100,105 31x5 140,105 5x5 100,110 31x21");
}

TEST_F(Damage, CoversABackdropIfContentNearItsEdgeMoves) {
  UIView* beneath = addRed(window, {{0, 190}, {10, 10}});
  addBackdrop({{0, 200}, {50, 50}});
  takeDamage();
  beneath->setFrame({{0, 189}, {10, 10}});
  EXPECT_EQ(takeDamage(), "0,189 10x11 0,200 50x50");
}

TEST_F(Damage, CoversViewsInTheAreaThatABackdropSamples) {
  UIView* beneath = addRed(window, {{0, 190}, {10, 10}});
  addBackdrop({{0, 200}, {50, 50}});
  addRed(window, {{60, 200}, {10, 10}});
  addRed(window, {{300, 200}, {10, 10}});
  takeDamage();
  beneath->setHidden(true);
  EXPECT_EQ(takeDamage(), "0,190 10x10 0,200 50x10 60,200 10x10 0,210 50x40");
}

TEST_F(Damage, DoesNotChangeARetainedScreenImage) {
  UIView* view = addRed(window, {{10, 10}, {20, 20}});
  const auto retained = uikit::renderScreen(1);
  view->setFrame({{100, 100}, {20, 20}});
  EXPECT_EQ(uikit::renderScreen(1)->pixel(15, 15), 0xff000000);
  EXPECT_EQ(retained->pixel(15, 15), 0xffff0000);
}

TEST_F(Damage, FollowsAnAnimation) {
  UIView* view = addRed(window, {{0, 0}, {10, 10}});
  takeDamage();
  UIView::animate(1, objc::block([view] { view->setFrame({{100, 0}, {10, 10}}); }));
  EXPECT_EQ(takeDamage(), "");
  foundation::stepClock(0.5);
  EXPECT_EQ(takeDamage(), "0,0 10x10 50,0 10x10");
}

}  // namespace test
