#include "platform/ui_view.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/views/cg_color.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "tests/uikit/stage.hpp"

namespace test {

namespace {

class Animation : public Stage {
 public:
  Animation() { window->addSubview(view); }

  objc::Ref<UIWindow> window = makeWindow();
  objc::Ref<UIView> view = UIView::withFrame<UIView>({{0, 0}, {100, 100}});
};

double shownAlpha(UIView* view) { return uikit::record(view).layer.opacity.shown(); }
CGRect shownFrame(UIView* view) { return uikit::shownFrame(uikit::record(view).layer); }

objc::BlockRef<void(bool)> writesFinished(const std::string& name) {
  return objc::block([name](bool finished) { Stage::write(name + (finished ? " finished" : " interrupted")); });
}

}  // namespace

TEST_F(Animation, ModelChangesAtOnceAndTheShownValueFollows) {
  UIView::animate(1, objc::block([this] { view->setAlpha(0); }));
  EXPECT_EQ(view->alpha(), 0);
  EXPECT_EQ(shownAlpha(view), 1);
  foundation::stepClock(0.5);
  EXPECT_NEAR(shownAlpha(view), 0.5, 1e-9);
  foundation::stepClock(0.5);
  EXPECT_EQ(shownAlpha(view), 0);
}

TEST_F(Animation, FollowsTheDefaultCurve) {
  UIView::animate(1, objc::block([this] { view->setFrame({{100, 0}, {100, 100}}); }));
  foundation::stepClock(0.25);
  // Of the cubic Bézier curve (0.42, 0, 0.58, 1) at a quarter of its time.
  EXPECT_NEAR(shownFrame(view).origin.x, 12.9162, 1e-3);
  foundation::stepClock(0.5);
  EXPECT_NEAR(shownFrame(view).origin.x, 87.0838, 1e-3);
}

TEST_F(Animation, AnimatesColorsWithoutDarkeningFromNothing) {
  UIView::animate(1, objc::block([this] { view->layer()->setBackgroundColor(nullptr); }));
  CGColor red = {{1, 0, 0, 1}};
  UIView::animate(1, objc::block([this, &red] { view->layer()->setBackgroundColor(&red); }));
  EXPECT_EQ(view->layer()->backgroundColor()->color, red.color);
  foundation::stepClock(0.5);
  const drawing::Color shown = uikit::record(view.get()).layer.background.shown();
  EXPECT_NEAR(shown.red, 1, 1e-9);
  EXPECT_NEAR(shown.alpha, 0.5, 1e-9);
}

TEST_F(Animation, CompletionComesOnTheMainQueueAtTheEnd) {
  UIView::animate(0.15, objc::block([this] { view->setAlpha(0.5); }), writesFinished("fade"));
  foundation::stepClock(0.149);
  EXPECT_EQ(takeJournal(), Journal{});
  foundation::stepClock(0.002);
  EXPECT_EQ(takeJournal(), Journal{"fade finished"});
  foundation::stepClock(1);
  EXPECT_EQ(takeJournal(), Journal{});
}

TEST_F(Animation, WithoutDurationCompletesInTheNextTurn) {
  UIView::animate(0, objc::block([this] { view->setAlpha(0.5); }), writesFinished("jump"));
  EXPECT_EQ(shownAlpha(view), 0.5);
  EXPECT_EQ(takeJournal(), Journal{});
  foundation::drainMainQueue();
  EXPECT_EQ(takeJournal(), Journal{"jump finished"});
}

TEST_F(Animation, ThatChangesNothingCompletesInTheNextTurn) {
  UIView::animate(5, objc::block([this] { view->setAlpha(1); }), writesFinished("nothing"));
  EXPECT_EQ(takeJournal(), Journal{});
  foundation::drainMainQueue();
  EXPECT_EQ(takeJournal(), Journal{"nothing finished"});
}

TEST_F(Animation, NewerOneStartsFromWhatIsShownAndTheOlderStillFinishes) {
  UIView::animate(1, objc::block([this] { view->setFrame({{100, 0}, {100, 100}}); }), writesFinished("first"));
  foundation::stepClock(0.5);
  UIView::animate(1, objc::block([this] { view->setFrame({{0, 0}, {100, 100}}); }), writesFinished("second"));
  EXPECT_NEAR(shownFrame(view).origin.x, 50, 1e-9);
  foundation::stepClock(0.6);
  EXPECT_EQ(takeJournal(), Journal{"first finished"});
  foundation::stepClock(0.5);
  EXPECT_EQ(takeJournal(), Journal{"second finished"});
  EXPECT_EQ(shownFrame(view).origin.x, 0);
}

TEST_F(Animation, RemovalFromTheSuperviewInterrupts) {
  const auto inner = addView(view, {{}, {10, 10}});
  UIView::animate(1, objc::block([inner] { inner->setAlpha(0); }), writesFinished("fade"));
  foundation::stepClock(0.5);
  view->removeFromSuperview();
  EXPECT_EQ(takeJournal(), Journal{});
  EXPECT_EQ(shownAlpha(inner), 0);
  foundation::drainMainQueue();
  EXPECT_EQ(takeJournal(), Journal{"fade interrupted"});
  foundation::stepClock(1);
  EXPECT_EQ(takeJournal(), Journal{});
}

TEST_F(Animation, InterruptedInPartFinishesWithTheRest) {
  const auto other = addView(window, {{}, {10, 10}});
  UIView::animate(1, objc::block([this, other] {
                    view->setAlpha(0);
                    other->setAlpha(0);
                  }),
                  writesFinished("both"));
  other->removeFromSuperview();
  foundation::stepClock(0.9);
  EXPECT_EQ(takeJournal(), Journal{});
  foundation::stepClock(0.2);
  EXPECT_EQ(takeJournal(), Journal{"both finished"});
}

TEST_F(Animation, InnerBlockRunsAtTheOuterPace) {
  UIView::animate(1, objc::block([this] { UIView::animate(0.1, objc::block([this] { view->setAlpha(0); })); }));
  foundation::stepClock(0.5);
  EXPECT_NEAR(shownAlpha(view), 0.5, 1e-9);
}

TEST_F(Animation, CanBeTurnedOffInsideABlock) {
  UIView::animate(1, objc::block([this] {
                    objc::send<void, "performWithoutAnimation:">(UIView::classObject(),
                                                                 objc::block([this] { view->setAlpha(0); }).get());
                  }));
  EXPECT_EQ(shownAlpha(view), 0);
}

TEST_F(Animation, WaitsForItsDelay) {
  objc::send<void, "animateWithDuration:delay:options:animations:completion:">(
      UIView::classObject(), 1.0, 2.0, NSUInteger{0}, objc::block([this] { view->setAlpha(0); }).get(),
      writesFinished("late").get());
  foundation::stepClock(2);
  EXPECT_EQ(shownAlpha(view), 1);
  foundation::stepClock(0.5);
  EXPECT_NEAR(shownAlpha(view), 0.5, 1e-9);
  foundation::stepClock(0.6);
  EXPECT_EQ(takeJournal(), Journal{"late finished"});
}

TEST_F(Animation, OfAConstraintMovesTheViewWhenLaidOutInside) {
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

// Another view's animation would take it along otherwise, and be interrupted with it.
TEST_F(Animation, DoesNotTakeAlongWhatAnEarlierTurnHasChanged) {
  const auto added = addConstrainedView(window);
  added->topAnchor()->equalTo(window->topAnchor(), 40)->setActive(true);
  added->leadingAnchor()->equalTo(window->leadingAnchor())->setActive(true);
  foundation::drainMainQueue();
  EXPECT_EQ(added->frame().origin.y, 40);
  UIView::animate(1, objc::block([this] {
                    view->setFrame({{100, 0}, {100, 100}});
                    window->layoutIfNeeded();
                  }),
                  writesFinished("view"));
  EXPECT_EQ(shownFrame(added).origin.y, 40);
  added->removeFromSuperview();
  foundation::stepClock(1);
  EXPECT_EQ(takeJournal(), Journal{"view finished"});
}

TEST_F(Animation, UnanimatedChangeKeepsWhatIsOnItsWay) {
  UIView::animate(1, objc::block([this] { view->setFrame({{100, 0}, {100, 100}}); }));
  foundation::stepClock(0.5);
  view->setFrame({{200, 0}, {100, 100}});
  EXPECT_NEAR(shownFrame(view).origin.x, 150, 1e-9);
  foundation::stepClock(0.5);
  EXPECT_EQ(shownFrame(view).origin.x, 200);
}

TEST_F(Animation, BlocksMayBeNull) {
  UIView::animate(1, nullptr, writesFinished("none"));
  UIView::animate(1, nullptr);
  foundation::drainMainQueue();
  EXPECT_EQ(takeJournal(), Journal{"none finished"});
}

TEST_F(Animation, FramesAreDemandedOnlyWhileSomethingMoves) {
  EXPECT_TRUE(foundation::mainQueueIsIdle());
  UIView::animate(0.2, objc::block([this] { view->setAlpha(0); }));
  EXPECT_FALSE(foundation::mainQueueIsIdle());
  foundation::stepClock(0.3);
  EXPECT_TRUE(foundation::mainQueueIsIdle());
}

}  // namespace test
