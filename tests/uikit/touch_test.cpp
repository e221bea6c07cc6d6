#include "simulator/uikit/touch/touch.hpp"

#include "simulator/foundation/main_queue.hpp"
#include "tests/uikit/uikit_fixture.hpp"

namespace test {

namespace {

class Touches : public UIKitTest {
 public:
  Touches() {
    window->addSubview(probe);
    probe->setFrame({{100, 100}, {100, 100}});
    takeLog();
  }
  // Returns the log without the messages about layout and hierarchy, which the layout before each touch causes.
  static Log takeLog() {
    Log entries = UIKitTest::takeLog();
    std::erase_if(entries, [](const std::string& entry) {
      return entry.ends_with("layoutSubviews") || entry.find("Subview ") != std::string::npos;
    });
    return entries;
  }
  UIView* hit(CGPoint point) const {
    return objc::send<UIView*, "hitTest:withEvent:">(window.get(), point, static_cast<UIEvent*>(nullptr));
  }
  objc::Ref<UIPanGestureRecognizer> addPan(UIView* view) const {
    auto pan = UIPanGestureRecognizer::withTarget(target, objc::selector<"pan:">());
    view->addGestureRecognizer(pan);
    return pan;
  }
  objc::Ref<UITapGestureRecognizer> addTap(UIView* view) const {
    auto tap = UITapGestureRecognizer::withTarget(target, objc::selector<"tap:">());
    view->addGestureRecognizer(tap);
    return tap;
  }

  objc::Ref<UIWindow> window = makeWindow();
  objc::Ref<ProbeView> probe = ProbeView::named("probe");
  objc::Ref<RecognizerTarget> target = objc::make<RecognizerTarget>();
};

constexpr CGPoint inside = {150, 150};

}  // namespace

TEST_F(Touches, HitTheFrontmostView) {
  EXPECT_EQ(hit(inside), probe.get());
  EXPECT_EQ(hit({99, 150}), window.get());
  EXPECT_EQ(hit({200, 150}), window.get());
  const auto front = addView(window, {{140, 140}, {20, 20}});
  EXPECT_EQ(hit(inside), front.get());
  const auto inner = addView(probe, {{10, 10}, {5, 5}});
  EXPECT_EQ(hit({112, 112}), inner.get());
}

TEST_F(Touches, SkipHiddenTransparentAndDisabledViews) {
  probe->setHidden(true);
  EXPECT_EQ(hit(inside), window.get());
  probe->setHidden(false);
  probe->setAlpha(0.009);
  EXPECT_EQ(hit(inside), window.get());
  probe->setAlpha(0.01);
  EXPECT_EQ(hit(inside), probe.get());
  probe->setUserInteractionEnabled(false);
  EXPECT_EQ(hit(inside), window.get());
}

TEST_F(Touches, DoNotReachSubviewsOutsideTheirSuperview) {
  addView(probe, {{150, 0}, {50, 50}});
  EXPECT_EQ(hit({260, 110}), window.get());
}

TEST_F(Touches, GoToTheViewTheyBeganOn) {
  uikit::deliverTouch(UITouchPhase::Began, inside, 0);
  EXPECT_TRUE(uikit::isFingerDown());
  uikit::deliverTouch(UITouchPhase::Moved, {300, 300}, 0);
  uikit::deliverTouch(UITouchPhase::Ended, {300, 300}, 0);
  EXPECT_FALSE(uikit::isFingerDown());
  EXPECT_EQ(takeLog(), (Log{"probe began", "probe moved", "probe ended"}));
}

TEST_F(Touches, MoveAndEndWithoutABeginAreIgnored) {
  uikit::deliverTouch(UITouchPhase::Moved, inside, 0);
  uikit::deliverTouch(UITouchPhase::Ended, inside, 0);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Touches, SecondTouchCancelsTheFirst) {
  uikit::deliverTouch(UITouchPhase::Began, inside, 0);
  uikit::deliverTouch(UITouchPhase::Began, inside, 0);
  uikit::deliverTouch(UITouchPhase::Cancelled, inside, 0);
  EXPECT_EQ(takeLog(), (Log{"probe began", "probe cancelled", "probe began", "probe cancelled"}));
}

TEST_F(Touches, GoToTheTopmostWindow) {
  const auto above = makeWindow();
  objc::send<void, "setWindowLevel:">(above.get(), 10.0);
  tap(inside);
  EXPECT_EQ(takeLog(), Log{});
  above->setHidden(true);
  tap(inside);
  EXPECT_EQ(takeLog(), (Log{"probe began", "probe ended"}));
}

TEST_F(Touches, RecognizedTapCancelsTheTouchOfTheView) {
  addTap(probe);
  tap(inside);
  EXPECT_EQ(takeLog(), (Log{"probe began", "probe cancelled", "tap 3"}));
}

TEST_F(Touches, DragIsNotATap) {
  addTap(probe);
  drag(inside, {0, 30}, 3);
  const Log entries = takeLog();
  EXPECT_EQ(std::count(entries.begin(), entries.end(), "tap 3"), 0);
  EXPECT_EQ(entries.back(), "probe ended");
}

TEST_F(Touches, SmallMovementIsStillATap) {
  addTap(probe);
  addPan(probe);
  drag(inside, {0, 9}, 3);
  EXPECT_EQ(takeLog().back(), "tap 3");
}

TEST_F(Touches, PanBeginsAfterTenPointsAndIncludesThem) {
  addPan(probe);
  drag(inside, {0, -20}, 4);
  EXPECT_EQ(takeLog(), (Log{"probe began", "probe moved", "probe cancelled", "pan 1 0,-10", "pan 2 0,-15",
                            "pan 2 0,-20", "pan 3 0,-20"}));
}

TEST_F(Touches, PanMeasuresItsSpeed) {
  const auto pan = addPan(probe);
  const auto speed = [&pan] {
    return objc::send<CGPoint, "velocityInView:">(pan.get(), static_cast<UIView*>(nullptr));
  };
  uikit::deliverTouch(UITouchPhase::Began, inside, 1);
  uikit::deliverTouch(UITouchPhase::Moved, {150, 190}, 1);
  EXPECT_EQ(speed(), (CGPoint{0, 0}));
  uikit::deliverTouch(UITouchPhase::Moved, {150, 195}, 1.001);
  EXPECT_EQ(speed(), (CGPoint{0, 0}));
  uikit::deliverTouch(UITouchPhase::Moved, {140, 200}, 1.5);
  EXPECT_EQ(speed(), (CGPoint{-20, 100}));
  uikit::deliverTouch(UITouchPhase::Ended, {140, 200}, 1.55);
  EXPECT_EQ(speed(), (CGPoint{-20, 100}));
  uikit::deliverTouch(UITouchPhase::Began, inside, 2);
  EXPECT_EQ(speed(), (CGPoint{0, 0}));
  uikit::deliverTouch(UITouchPhase::Moved, {150, 190}, 2.5);
  uikit::deliverTouch(UITouchPhase::Ended, {150, 190}, 2.7);
  EXPECT_EQ(speed(), (CGPoint{0, 0}));
}

TEST_F(Touches, PanIsCanceledWithItsTouch) {
  addPan(probe);
  uikit::deliverTouch(UITouchPhase::Began, inside, 0);
  uikit::deliverTouch(UITouchPhase::Moved, {150, 190}, 0);
  uikit::deliverTouch(UITouchPhase::Cancelled, {150, 190}, 0);
  const Log entries = takeLog();
  EXPECT_EQ(entries.back(), "pan 4 0,40");
}

TEST_F(Touches, InnerRecognizerWinsOverTheOuter) {
  const auto inner = addView(probe, {{}, {100, 100}});
  const auto outerPan = addPan(probe);
  const auto innerPan = addPan(inner);
  const auto other = objc::make<RecognizerTarget>();
  objc::send<void, "removeTarget:action:">(outerPan.get(), static_cast<NSObject*>(nullptr), static_cast<SEL>(nullptr));
  objc::send<void, "addTarget:action:">(outerPan.get(), static_cast<NSObject*>(other.get()), objc::selector<"plain">());
  drag(inside, {20, 0}, 2);
  EXPECT_EQ(takeLog(), (Log{"probe began", "probe cancelled", "pan 1 10,0", "pan 2 20,0", "pan 3 20,0"}));
  inner->removeGestureRecognizer(innerPan);
  drag(inside, {20, 0}, 1);
  EXPECT_EQ(takeLog(), (Log{"probe began", "probe cancelled", "plain", "plain"}));
}

TEST_F(Touches, TranslationCanBeReset) {
  const auto pan = addPan(probe);
  uikit::deliverTouch(UITouchPhase::Began, inside, 0);
  uikit::deliverTouch(UITouchPhase::Moved, {150, 170}, 0);
  objc::send<void, "setTranslation:inView:">(pan.get(), CGPoint{}, static_cast<UIView*>(probe.get()));
  uikit::deliverTouch(UITouchPhase::Ended, {150, 175}, 0);
  EXPECT_EQ(takeLog().back(), "pan 3 0,5");
}

TEST_F(Touches, LocationIsInTheCoordinatesOfTheGivenView) {
  const auto pan = addPan(probe);
  uikit::deliverTouch(UITouchPhase::Began, inside, 0);
  uikit::deliverTouch(UITouchPhase::Moved, {150, 170}, 0);
  const auto location = [&](UIView* view) { return objc::send<CGPoint, "locationInView:">(pan.get(), view); };
  EXPECT_EQ(location(probe), (CGPoint{50, 70}));
  EXPECT_EQ(location(nullptr), (CGPoint{150, 170}));
  uikit::deliverTouch(UITouchPhase::Ended, inside, 0);
}

TEST_F(Touches, DisabledRecognizerIgnoresTouches) {
  const auto tapRecognizer = addTap(probe);
  objc::send<void, "setEnabled:">(tapRecognizer.get(), false);
  tap(inside);
  EXPECT_EQ(takeLog(), (Log{"probe began", "probe ended"}));
}

TEST_F(Touches, TargetIsNotRetainedAndSkippedAfterDeallocation) {
  addTap(probe);
  const int before = livingObjects();
  target = nullptr;
  EXPECT_EQ(livingObjects(), before - 1);
  tap(inside);
  EXPECT_EQ(takeLog(), (Log{"probe began", "probe cancelled"}));
}

TEST_F(Touches, RecognizerStopsWhenItsViewIsRemoved) {
  addPan(probe);
  uikit::deliverTouch(UITouchPhase::Began, inside, 0);
  uikit::deliverTouch(UITouchPhase::Moved, {150, 170}, 0);
  probe->removeFromSuperview();
  takeLog();
  uikit::deliverTouch(UITouchPhase::Moved, {150, 190}, 0);
  uikit::deliverTouch(UITouchPhase::Ended, {150, 190}, 0);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Touches, UnhandledTouchesGoUpTheResponderChain) {
  addView(probe, {{}, {100, 100}});
  tap(inside);
  EXPECT_EQ(takeLog(), (Log{"probe began", "probe ended"}));
}

}  // namespace test
