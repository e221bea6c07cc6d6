// Tests of UISwitch, UISlider and UIScrollView.
#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/controls/scroll_view.hpp"
#include "simulator/uikit/controls/slider.hpp"
#include "simulator/uikit/controls/switch.hpp"
#include "simulator/uikit/touch/touch.hpp"
#include "tests/uikit/control_target.hpp"

namespace test {

namespace {

class SlidingControls : public UIKitTest {
 protected:
  void observe(UIControl* control) {
    window->addSubview(control);
    control->addTarget(target, objc::selector<"changed">(), uikit::valueChanged);
  }

  objc::Ref<UIWindow> window = makeWindow();
  objc::Ref<ControlTarget> target = ControlTarget::make();
};

class Switches : public SlidingControls {
 protected:
  Switches() { observe(toggle); }
  objc::Ref<UISwitch> toggle = UIView::withFrame<UISwitch>({{100, 100}, {}});
};

TEST_F(Switches, ChangeAndSendTheActionWhenTheyAreTapped) {
  tap({120, 110});
  EXPECT_TRUE(toggle->isOn());
  EXPECT_EQ(takeLog(), Log{"changed"});
  tap({120, 110});
  EXPECT_FALSE(toggle->isOn());
}

TEST_F(Switches, SendNoActionWhenTheProgramChangesThem) {
  toggle->setOn(true);
  EXPECT_TRUE(toggle->isOn());
  EXPECT_EQ(takeLog(), Log{});
}

class Sliders : public SlidingControls {
 protected:
  Sliders() {
    observe(slider);
    slider->setRange({10, 20, 5});
    slider->setValue(10);
  }
  // The thumb moves by 100 points over the whole range.
  objc::Ref<UISlider> slider = UIView::withFrame<UISlider>({{100, 100}, {128, 40}});
  static constexpr CGPoint thumbAtStart = {114, 120};
};

TEST_F(Sliders, StopAtTheEndsOfTheirSegments) {
  drag(thumbAtStart, {27, 0});
  EXPECT_EQ(slider->value(), 12);
  EXPECT_EQ(takeLog(), Log{"changed"});
  drag({134, 120}, {300, 0});
  EXPECT_EQ(slider->value(), 20);
}

TEST_F(Sliders, StopEverywhereWithoutSegments) {
  slider->setRange({0, 1, 0});
  drag(thumbAtStart, {33, 0});
  EXPECT_DOUBLE_EQ(slider->value(), 0.33);
}

TEST_F(Sliders, IgnoreTouchesBesideTheThumb) {
  drag({200, 120}, {20, 0});
  EXPECT_EQ(slider->value(), 10);
}

TEST_F(Sliders, AreNotMovedByTheProgramDuringADrag) {
  uikit::deliverTouch(UITouchPhase::Began, thumbAtStart, 0);
  uikit::deliverTouch(UITouchPhase::Moved, {154, 120}, 0);
  slider->setValue(20);
  EXPECT_EQ(slider->value(), 14);
  uikit::deliverTouch(UITouchPhase::Ended, {154, 120}, 0);
  slider->setValue(20);
  EXPECT_EQ(slider->value(), 20);
}

class ScrollViews : public SlidingControls {
 protected:
  ScrollViews() {
    window->addSubview(view);
    view->setContentHeight(1000);
    toggle = UIView::withFrame<UISwitch>({{100, 300}, {}});
    view->addSubview(toggle);
  }
  // Moves the finger up by 10 points in each frame, and lifts it.
  void flick() {
    uikit::deliverTouch(UITouchPhase::Began, {10, 200}, 0);
    for (int frame = 1; frame <= 5; ++frame) {
      foundation::stepClock(1.0 / 60);
      uikit::deliverTouch(UITouchPhase::Moved, {10, 200.0 - 10 * frame}, 0);
    }
    uikit::deliverTouch(UITouchPhase::Ended, {10, 150}, 0);
  }
  objc::Ref<UIScrollView> view = UIView::withFrame<UIScrollView>({{0, 0}, {300, 250}});
  objc::Ref<UISwitch> toggle;
};

TEST_F(ScrollViews, FollowTheFinger) {
  drag({10, 200}, {0, -120});
  EXPECT_EQ(view->contentOffset(), 120);
  tap({120, 190});
  EXPECT_TRUE(toggle->isOn());
}

TEST_F(ScrollViews, StopAtTheEndsOfTheContent) {
  drag({10, 20}, {0, 100});
  EXPECT_EQ(view->contentOffset(), 0);
  drag({10, 200}, {0, -5000});
  EXPECT_EQ(view->contentOffset(), 750);
  view->setContentHeight(400);
  EXPECT_EQ(view->contentOffset(), 150);
  view->setContentHeight(100);
  EXPECT_EQ(view->contentOffset(), 0);
}

TEST_F(ScrollViews, SlowDownAfterAFlick) {
  flick();
  const CGFloat lifted = view->contentOffset();
  foundation::stepClock(0.2);
  const CGFloat later = view->contentOffset();
  EXPECT_GT(later, lifted);
  foundation::stepClock(0.2);
  EXPECT_LT(view->contentOffset() - later, later - lifted);
  foundation::stepClock(10);
  EXPECT_TRUE(foundation::mainQueueIsIdle());
}

TEST_F(ScrollViews, DoNotMoveAfterTheFingerHasRested) {
  uikit::deliverTouch(UITouchPhase::Began, {10, 200}, 0);
  foundation::stepClock(0.1);
  uikit::deliverTouch(UITouchPhase::Moved, {10, 150}, 0);
  foundation::stepClock(0.5);
  uikit::deliverTouch(UITouchPhase::Ended, {10, 150}, 0);
  foundation::stepClock(1);
  EXPECT_EQ(view->contentOffset(), 50);
}

TEST_F(ScrollViews, ATouchStopsTheMotionWithoutOperatingASubview) {
  flick();
  foundation::stepClock(0.1);
  const CGFloat offset = view->contentOffset();
  tap({120, 300 - offset + 15});
  EXPECT_FALSE(toggle->isOn());
  foundation::stepClock(1);
  EXPECT_EQ(view->contentOffset(), offset);
  tap({120, 300 - offset + 15});
  EXPECT_TRUE(toggle->isOn());
}

}  // namespace

}  // namespace test
