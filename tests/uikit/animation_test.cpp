#include <stdexcept>

#include "platform/ui_view.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/rendering/animation_frames.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "tests/uikit/uikit_fixture.hpp"

namespace test {

namespace {

class Animation : public UIKitTest {
 public:
  Animation() { window->addSubview(view); }

  objc::Ref<UIWindow> window = makeWindow();
  objc::Ref<UIView> view = UIView::withFrame<UIView>({{0, 0}, {100, 100}});
};

double shownAlpha(UIView* view) { return uikit::record(view).layer.opacity.shown(); }
CGRect shownFrame(UIView* view) { return uikit::shownFrame(uikit::record(view).layer); }

objc::BlockRef<void(bool)> logsCompletion(const std::string& name) {
  return objc::block([name](bool finished) { UIKitTest::log(name + (finished ? " finished" : " interrupted")); });
}

}  // namespace

TEST_F(Animation, ModelValueChangesAtOnceAndTheShownValueFollows) {
  UIView::animate(1, objc::block([this] { view->setAlpha(0); }));
  EXPECT_EQ(view->alpha(), 0);
  EXPECT_EQ(shownAlpha(view), 1);
  foundation::stepClock(0.5);
  EXPECT_NEAR(shownAlpha(view), 0.5, 1e-9);
  foundation::stepClock(0.5);
  EXPECT_EQ(shownAlpha(view), 0);
}

TEST_F(Animation, FollowsTheEaseInEaseOutCurve) {
  UIView::animate(1, objc::block([this] { view->setFrame({{100, 0}, {100, 100}}); }));
  foundation::stepClock(0.25);
  // 100 points times the value of the cubic Bézier curve (0.42, 0, 0.58, 1) at a quarter of its duration.
  EXPECT_NEAR(shownFrame(view).origin.x, 12.9162, 1e-3);
  foundation::stepClock(0.5);
  EXPECT_NEAR(shownFrame(view).origin.x, 87.0838, 1e-3);
}

TEST_F(Animation, ColorFadesInFromTransparentWithoutDarkening) {
  UIView::animate(1, objc::block([this] { view->layer()->setBackgroundColor(nullptr); }));
  CGColor red = {{1, 0, 0, 1}};
  UIView::animate(1, objc::block([this, &red] { view->layer()->setBackgroundColor(&red); }));
  EXPECT_EQ(view->layer()->backgroundColor()->color, red.color);
  foundation::stepClock(0.5);
  const drawing::Color shown = uikit::record(view.get()).layer.background.shown();
  EXPECT_NEAR(shown.red, 1, 1e-9);
  EXPECT_NEAR(shown.alpha, 0.5, 1e-9);
}

TEST_F(Animation, CompletionRunsOnTheMainQueueAtTheEnd) {
  UIView::animate(0.15, objc::block([this] { view->setAlpha(0.5); }), logsCompletion("fade"));
  foundation::stepClock(0.149);
  EXPECT_EQ(takeLog(), Log{});
  foundation::stepClock(0.002);
  EXPECT_EQ(takeLog(), Log{"fade finished"});
  foundation::stepClock(1);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Animation, ZeroDurationCompletesInTheNextRunLoopIteration) {
  UIView::animate(0, objc::block([this] { view->setAlpha(0.5); }), logsCompletion("jump"));
  EXPECT_EQ(shownAlpha(view), 0.5);
  EXPECT_EQ(takeLog(), Log{});
  foundation::drainMainQueue();
  EXPECT_EQ(takeLog(), Log{"jump finished"});
}

TEST_F(Animation, UnchangedPropertiesCompleteInTheNextRunLoopIteration) {
  UIView::animate(5, objc::block([this] { view->setAlpha(1); }), logsCompletion("nothing"));
  EXPECT_EQ(takeLog(), Log{});
  foundation::drainMainQueue();
  EXPECT_EQ(takeLog(), Log{"nothing finished"});
}

TEST_F(Animation, NewAnimationStartsFromTheShownValueAndTheOldOneStillFinishes) {
  UIView::animate(1, objc::block([this] { view->setFrame({{100, 0}, {100, 100}}); }), logsCompletion("first"));
  foundation::stepClock(0.5);
  UIView::animate(1, objc::block([this] { view->setFrame({{0, 0}, {100, 100}}); }), logsCompletion("second"));
  EXPECT_NEAR(shownFrame(view).origin.x, 50, 1e-9);
  foundation::stepClock(0.6);
  EXPECT_EQ(takeLog(), Log{"first finished"});
  foundation::stepClock(0.5);
  EXPECT_EQ(takeLog(), Log{"second finished"});
  EXPECT_EQ(shownFrame(view).origin.x, 0);
}

TEST_F(Animation, RemovalFromTheSuperviewInterruptsTheAnimation) {
  const auto inner = addView(view, {{}, {10, 10}});
  UIView::animate(1, objc::block([inner] { inner->setAlpha(0); }), logsCompletion("fade"));
  foundation::stepClock(0.5);
  view->removeFromSuperview();
  EXPECT_EQ(takeLog(), Log{});
  EXPECT_EQ(shownAlpha(inner), 0);
  foundation::drainMainQueue();
  EXPECT_EQ(takeLog(), Log{"fade interrupted"});
  foundation::stepClock(1);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Animation, FinishesWithTheRemainingViewsIfOneIsRemoved) {
  const auto other = addView(window, {{}, {10, 10}});
  UIView::animate(1, objc::block([this, other] {
                    view->setAlpha(0);
                    other->setAlpha(0);
                  }),
                  logsCompletion("both"));
  other->removeFromSuperview();
  foundation::stepClock(0.9);
  EXPECT_EQ(takeLog(), Log{});
  foundation::stepClock(0.2);
  EXPECT_EQ(takeLog(), Log{"both finished"});
}

TEST_F(Animation, NestedAnimationUsesTheOuterDuration) {
  UIView::animate(1, objc::block([this] { UIView::animate(0.1, objc::block([this] { view->setAlpha(0); })); }));
  foundation::stepClock(0.5);
  EXPECT_NEAR(shownAlpha(view), 0.5, 1e-9);
}

TEST_F(Animation, CanBeDisabledInsideABlock) {
  UIView::animate(1, objc::block([this] {
                    objc::send<void, "performWithoutAnimation:">(UIView::classObject(),
                                                                 objc::block([this] { view->setAlpha(0); }).get());
                  }));
  EXPECT_EQ(shownAlpha(view), 0);
}

// The exception ends the block, so later changes are not animated.
TEST_F(Animation, BlockCanRaiseAnException) {
  const auto raise = objc::block([] { throw std::runtime_error("an exception"); });
  EXPECT_THROW(UIView::animate(1, raise), std::runtime_error);
  view->setAlpha(0);
  EXPECT_EQ(shownAlpha(view), 0);
}

TEST_F(Animation, WaitsForItsDelay) {
  objc::send<void, "animateWithDuration:delay:options:animations:completion:">(
      UIView::classObject(), 1.0, 2.0, NSUInteger{0}, objc::block([this] { view->setAlpha(0); }).get(),
      logsCompletion("late").get());
  foundation::stepClock(2);
  EXPECT_EQ(shownAlpha(view), 1);
  foundation::stepClock(0.5);
  EXPECT_NEAR(shownAlpha(view), 0.5, 1e-9);
  foundation::stepClock(0.6);
  EXPECT_EQ(takeLog(), Log{"late finished"});
}

TEST_F(Animation, LayoutInsideTheBlockAnimatesConstraintChanges) {
  const auto banner = addConstrainedView(window);
  NSLayoutConstraint* top = banner->topAnchor()->equalTo(window->topAnchor(), -70)->activated();
  banner->leadingAnchor()->equalTo(window->leadingAnchor())->setActive(true);
  banner->widthAnchor()->equalToConstant(50)->setActive(true);
  banner->heightAnchor()->equalToConstant(50)->setActive(true);
  const auto inner = addConstrainedView(banner);
  inner->topAnchor()->equalTo(banner->topAnchor(), 5)->setActive(true);
  window->layoutIfNeeded();
  UIView::animate(1, objc::block([&] {
                    top->setConstant(10);
                    window->layoutIfNeeded();
                  }));
  EXPECT_EQ(banner->frame().origin.y, 10);
  EXPECT_EQ(shownFrame(banner).origin.y, -70);
  EXPECT_EQ(shownFrame(inner).origin.y, 5);
  foundation::stepClock(0.5);
  EXPECT_NEAR(shownFrame(banner).origin.y, -30, 1e-9);
  foundation::stepClock(0.5);
  EXPECT_EQ(shownFrame(banner).origin.y, 10);
}

// If the view that was added in an earlier iteration were animated too, its removal would interrupt the animation.
TEST_F(Animation, DoesNotAnimateChangesOfAnEarlierRunLoopIteration) {
  const auto added = addConstrainedView(window);
  added->topAnchor()->equalTo(window->topAnchor(), 40)->setActive(true);
  added->leadingAnchor()->equalTo(window->leadingAnchor())->setActive(true);
  foundation::drainMainQueue();
  EXPECT_EQ(added->frame().origin.y, 40);
  UIView::animate(1, objc::block([this] {
                    view->setFrame({{100, 0}, {100, 100}});
                    window->layoutIfNeeded();
                  }),
                  logsCompletion("view"));
  EXPECT_EQ(shownFrame(added).origin.y, 40);
  added->removeFromSuperview();
  foundation::stepClock(1);
  EXPECT_EQ(takeLog(), Log{"view finished"});
}

TEST_F(Animation, UnanimatedChangeKeepsTheRunningAnimation) {
  UIView::animate(1, objc::block([this] { view->setFrame({{100, 0}, {100, 100}}); }));
  foundation::stepClock(0.5);
  view->setFrame({{200, 0}, {100, 100}});
  EXPECT_NEAR(shownFrame(view).origin.x, 150, 1e-9);
  foundation::stepClock(0.5);
  EXPECT_EQ(shownFrame(view).origin.x, 200);
}

TEST_F(Animation, FramesAreSkippedWhileTheViewIsOutsideTheScreen) {
  CGColor red = {{1, 0, 0, 1}};
  view->layer()->setBackgroundColor(&red);
  view->setFrame({{0, -200}, {100, 100}});
  UIView::animate(1, objc::block([this] { view->setFrame({{0, 0}, {100, 100}}); }), logsCompletion("slide").get());
  uikit::skipInvisibleFrames(view);
  EXPECT_GT(shownFrame(view).origin.y, -100);
  EXPECT_LT(shownFrame(view).origin.y, -90);
  foundation::stepClock(0.49);
  EXPECT_EQ(shownFrame(view).origin.y, 0);
  EXPECT_EQ(takeLog(), Log{"slide finished"});
}

TEST_F(Animation, SkipsNoFramesOfAViewThatStaysOutsideTheScreen) {
  view->setFrame({{0, -300}, {100, 100}});
  UIView::animate(1, objc::block([this] { view->setFrame({{0, -200}, {100, 100}}); }));
  uikit::skipInvisibleFrames(view);
  EXPECT_EQ(shownFrame(view).origin.y, -300);
}

TEST_F(Animation, NullBlocksAreAllowed) {
  UIView::animate(1, nullptr, logsCompletion("none"));
  UIView::animate(1, nullptr);
  foundation::drainMainQueue();
  EXPECT_EQ(takeLog(), Log{"none finished"});
}

TEST_F(Animation, FramesAreRequestedOnlyDuringAnAnimation) {
  EXPECT_TRUE(foundation::mainQueueIsIdle());
  UIView::animate(0.2, objc::block([this] { view->setAlpha(0); }));
  EXPECT_FALSE(foundation::mainQueueIsIdle());
  foundation::stepClock(0.3);
  EXPECT_TRUE(foundation::mainQueueIsIdle());
}

}  // namespace test
