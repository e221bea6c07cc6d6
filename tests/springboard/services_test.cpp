// Tests of the services of the home screen without its shell, and of their observers.
#include <gtest/gtest.h>

#include "objc/autorelease_pool.hpp"
#include "simulator/base/installation.hpp"
#include "simulator/foundation/classes.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/process/process_start.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"
#include "simulator/springboard/services/notification_description.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"
#include "simulator/springboard/springboard_startup.hpp"
#include "simulator/uikit/classes.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/views/window.hpp"
#include "tests/support/start_time.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

// Starts the services in this process.
class Services : public testing::Test {
 public:
  Services() {
    process::useRoot(folder_.path() / "root");
    foundation::registerClasses();
    const objc::AutoreleasePool pool;
    foundation::useClock(foundation::ClockMode::Stepped, test::startTime);
    uikit::setEnvironment({});
    uikit::registerClasses();
    springboard::registerClasses();
    springboard::startServices(base::installation().applications);
    foundation::drainMainQueue();
  }

  static void post() {
    const objc::AutoreleasePool pool;
    springboard::NotificationDescription description;
    description.section = "com.apple.MobileSMS";
    description.title = "Anna";
    NCNotificationDispatcher::shared()->post(springboard::makeRequest(description, nullptr));
  }

 private:
  test::TemporaryFolder folder_;
};

TEST_F(Services, PresentABannerWithoutTheShell) {
  EXPECT_TRUE(uikit::visibleWindows().empty());
  uikit::ScreenPicture picture;
  picture.update(1);
  post();
  foundation::stepClock(1);
  EXPECT_NE(springboard::bannerController(1), nullptr);
  EXPECT_EQ(uikit::visibleWindows().size(), 1U);
  EXPECT_EQ(cairo_region_is_empty(picture.update(1).get()), 0);
  EXPECT_NE(picture.canvas()->pixel(187, 60), 0xff000000);
  foundation::stepClock(10);
  EXPECT_TRUE(uikit::visibleWindows().empty());
  EXPECT_EQ(springboard::bannerController(1), nullptr);
}

TEST_F(Services, StartTheShellLater) {
  springboard::startShell();
  foundation::drainMainQueue();
  EXPECT_EQ(uikit::visibleWindows().size(), 2U);
  post();
  foundation::stepClock(1);
  EXPECT_EQ(uikit::visibleWindows().size(), 3U);
}

TEST_F(Services, NotifyEachObserverOfTheList) {
  int first = 0;
  int second = 0;
  const std::size_t observer = NCNotificationDispatcher::shared()->observeList([&first] { ++first; });
  NCNotificationDispatcher::shared()->observeList([&second] { ++second; });
  post();
  NCNotificationDispatcher::shared()->stopObservingList(observer);
  post();
  EXPECT_EQ(first, 1);
  EXPECT_EQ(second, 2);
}

TEST_F(Services, NotifyEachObserverOfReleasedBanners) {
  std::vector<std::size_t> first;
  std::vector<std::size_t> second;
  springboard::observeBannerReleases([&first](std::size_t number) { first.push_back(number); });
  springboard::observeBannerReleases([&second](std::size_t number) { second.push_back(number); });
  post();
  foundation::stepClock(10);
  EXPECT_EQ(first, std::vector<std::size_t>{1});
  EXPECT_EQ(second, std::vector<std::size_t>{1});
}

}  // namespace
