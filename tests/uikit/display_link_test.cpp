#include "simulator/uikit/rendering/display_link.hpp"

#include "platform/ui_view.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "tests/uikit/uikit_fixture.hpp"

namespace test {

namespace {

// Records the times at which a display link presents the screen.
class DisplayLink : public UIKitTest {
 public:
  DisplayLink() {
    foundation::useClock(foundation::ClockMode::Stepped, 0);
    CGColor red = {{1, 0, 0, 1}};
    view->layer()->setBackgroundColor(&red);
    window->addSubview(view);
    foundation::stepClock(1);
    times.clear();
  }

  void animateTo(CGFloat y, double seconds = 0.5) {
    UIView::animate(seconds, objc::block([this, y] { view->setFrame({{0, y}, {100, 100}}); }), logsEnd());
  }
  static objc::BlockRef<void(bool)> logsEnd() {
    return objc::block([](bool) { UIKitTest::log("end@" + std::to_string(foundation::now())); });
  }
  double shownTop() const { return uikit::shownFrame(uikit::record(view).layer).origin.y; }

  objc::Ref<UIWindow> window = makeWindow();
  objc::Ref<UIView> view = UIView::withFrame<UIView>({{0, 0}, {100, 100}});
  std::vector<double> times;
  uikit::DisplayLink link{[this] { times.push_back(foundation::now()); }};
};

}  // namespace

TEST_F(DisplayLink, PresentsAChangeInTheSameRunLoopIteration) {
  foundation::stepClock(0.005);
  view->setFrame({{10, 0}, {100, 100}});
  foundation::drainMainQueue();
  EXPECT_EQ(times, std::vector<double>{1.005});
}

TEST_F(DisplayLink, PresentsAtMostOncePerFrame) {
  for (int change = 0; change < 4; ++change) {
    view->setFrame({{10.0 * (change + 1), 0}, {100, 100}});
    foundation::stepClock(0.004);
  }
  foundation::stepClock(1);
  ASSERT_EQ(times.size(), 2U);
  EXPECT_EQ(times[0], 1);
  EXPECT_NEAR(times[1], 1 + 1.0 / 60, 1e-9);
}

TEST_F(DisplayLink, SleepsWhileNothingChanges) {
  foundation::stepClock(10);
  EXPECT_TRUE(times.empty());
  EXPECT_TRUE(foundation::mainQueueIsIdle());
}

TEST_F(DisplayLink, PresentsEachFrameOfAVisibleAnimation) {
  animateTo(200);
  foundation::stepClock(2);
  EXPECT_EQ(times.size(), 31U);  // the start and 30 frames
}

TEST_F(DisplayLink, PresentsNoFrameOfAnAnimationOutsideTheScreen) {
  view->setFrame({{0, -300}, {100, 100}});
  foundation::stepClock(1);
  times.clear();
  takeLog();
  animateTo(-200);
  foundation::stepClock(0.25);
  EXPECT_NEAR(shownTop(), -250, 1e-9);
  foundation::stepClock(1);
  EXPECT_EQ(times, std::vector<double>{2});
  EXPECT_EQ(takeLog(), Log{"end@2.500000"});
}

TEST_F(DisplayLink, PresentsNoFrameOfAnAnimationOfAnInvisibleView) {
  view->setAlpha(0);
  foundation::stepClock(1);
  times.clear();
  animateTo(200);
  foundation::stepClock(1);
  EXPECT_EQ(times, std::vector<double>{2});
}

TEST_F(DisplayLink, PresentsTheFramesFromTheFirstVisiblePixel) {
  view->setFrame({{0, -200}, {100, 100}});
  foundation::stepClock(1);
  times.clear();
  // The view enters the screen after half of the distance.
  animateTo(0, 1);
  foundation::stepClock(2);
  ASSERT_EQ(times.size(), 31U);
  EXPECT_EQ(times[0], 2);
  EXPECT_NEAR(times[1], 2.5 + 1.0 / 60, 1e-9);
  EXPECT_EQ(times.back(), 3);
}

TEST_F(DisplayLink, PresentsAnAnimationThatAnotherChangeMakesVisible) {
  view->setFrame({{0, -400}, {100, 100}});
  foundation::stepClock(1);
  times.clear();
  animateTo(-300, 1);
  foundation::stepClock(0.5);
  EXPECT_EQ(times.size(), 1U);
  window->setFrame({{0, 400}, {100, 100}});
  foundation::stepClock(1);
  EXPECT_EQ(times.size(), 32U);
}

TEST_F(DisplayLink, PresentsADelayedAnimationAfterMinutes) {
  objc::send<void, "animateWithDuration:delay:options:animations:completion:">(
      UIView::classObject(), 0.5, 180.0, NSUInteger{0}, objc::block([this] { view->setAlpha(0); }).get(),
      static_cast<objc::Block<void(bool)>*>(nullptr));
  foundation::stepClock(200);
  ASSERT_EQ(times.size(), 31U);
  EXPECT_EQ(times[0], 1);
  EXPECT_NEAR(times[1], 181 + 1.0 / 60, 1e-9);
}

TEST_F(DisplayLink, AddedDuringAnAnimationPresentsTheRemainingFrames) {
  animateTo(200, 1);
  foundation::stepClock(0.5);
  std::vector<double> later;
  const uikit::DisplayLink other([&] { later.push_back(foundation::now()); });
  foundation::stepClock(1);
  EXPECT_EQ(later.size(), 30U);
}

}  // namespace test
