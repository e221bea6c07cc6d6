#include "simulator/uikit/environment/screen.hpp"

#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/rendering/display_link.hpp"
#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/window.hpp"
#include "tests/uikit/uikit_fixture.hpp"

namespace test {

namespace {

constexpr std::uint32_t red = 0xffff0000;
constexpr std::uint32_t black = 0xff000000;

std::vector<int> extents(const drawing::RegionHandle& region) {
  cairo_rectangle_int_t all = {};
  cairo_region_get_extents(region.get(), &all);
  return {all.x, all.y, all.width, all.height};
}

const std::vector<int> none = {0, 0, 0, 0};

// The main screen, and a small screen with a high pixel density and a transparent background.
class Screen : public UIKitTest {
 public:
  Screen() {
    uikit::setScreen(otherWindow, other);
    mainPicture.update(1);
    otherPicture.update(other.scale);
  }

  objc::Ref<UIView> addRed(UIView* parent, CGRect frame) {
    CGColor color = {{1, 0, 0, 1}};
    auto view = addView(parent, frame);
    view->layer()->setBackgroundColor(&color);
    return view;
  }

  uikit::Screen other{{100, 50}, 2, {0, 0, 0, 0}};
  objc::Ref<UIWindow> mainWindow = makeWindow();
  objc::Ref<UIWindow> otherWindow = makeWindow();
  uikit::ScreenPicture mainPicture;
  uikit::ScreenPicture otherPicture{other};
};

}  // namespace

TEST_F(Screen, HasPicturesOfItsSizeAndScale) {
  EXPECT_EQ(mainPicture.canvas()->pixelWidth(), static_cast<int>(uikit::mainScreen().size.width));
  EXPECT_EQ(otherPicture.canvas()->pixelWidth(), 200);
  EXPECT_EQ(otherPicture.canvas()->pixelHeight(), 100);
}

TEST_F(Screen, ShowsOnlyItsOwnWindows) {
  const auto onMain = addRed(mainWindow, {{10, 10}, {20, 20}});
  const auto onOther = addRed(otherWindow, {{50, 20}, {10, 10}});
  EXPECT_EQ(extents(mainPicture.update(1)), (std::vector<int>{10, 10, 20, 20}));
  EXPECT_EQ(extents(otherPicture.update(2)), (std::vector<int>{100, 40, 20, 20}));
  EXPECT_EQ(mainPicture.canvas()->pixel(15, 15), red);
  EXPECT_EQ(mainPicture.canvas()->pixel(55, 25), black);
  EXPECT_EQ(otherPicture.canvas()->pixel(110, 50), red);
  EXPECT_EQ(otherPicture.canvas()->pixel(30, 30), 0U);
}

TEST_F(Screen, HasItsOwnDamage) {
  const auto view = addRed(otherWindow, {{50, 20}, {10, 10}});
  EXPECT_EQ(extents(mainPicture.update(1)), none);
  EXPECT_NE(extents(otherPicture.update(2)), none);
  view->removeFromSuperview();
  EXPECT_EQ(extents(otherPicture.update(2)), (std::vector<int>{100, 40, 20, 20}));
  EXPECT_EQ(otherPicture.canvas()->pixel(110, 50), 0U);
}

TEST_F(Screen, WindowMovesToAnotherScreen) {
  const auto view = addRed(mainWindow, {{10, 10}, {20, 20}});
  mainPicture.update(1);
  uikit::setScreen(mainWindow, other);
  EXPECT_EQ(extents(mainPicture.update(1)), (std::vector<int>{10, 10, 20, 20}));
  EXPECT_EQ(extents(otherPicture.update(2)), (std::vector<int>{20, 20, 40, 40}));
  EXPECT_EQ(&uikit::screenOf(mainWindow), &other);
}

TEST_F(Screen, AnimationIsVisibleWithinTheSizeOfItsOwnScreen) {
  foundation::useClock(foundation::ClockMode::Stepped, 0);
  const auto view = addRed(otherWindow, {{0, 60}, {10, 10}});
  int presented = 0;
  const uikit::DisplayLink link([&presented] { ++presented; });
  foundation::stepClock(1);
  presented = 0;
  // The view stays below the edge of its screen. It would be visible on the main screen.
  UIView::animate(0.5, objc::block([&view] { view->setFrame({{0, 90}, {10, 10}}); }));
  foundation::stepClock(1);
  EXPECT_EQ(presented, 1);
}

TEST_F(Screen, OnlyWindowsOfTheMainScreenReceiveTouches) {
  const auto probe = ProbeView::named("probe");
  probe->setFrame({{0, 0}, {50, 50}});
  otherWindow->addSubview(probe);
  foundation::drainMainQueue();
  takeLog();
  tap({10, 10});
  EXPECT_TRUE(takeLog().empty());
  uikit::setScreen(otherWindow, uikit::mainScreen());
  tap({10, 10});
  EXPECT_FALSE(takeLog().empty());
}

}  // namespace test
