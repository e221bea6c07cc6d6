// Tests of the frames that a banner needs from its arrival to its departure.
#include "simulator/uikit/rendering/display_link.hpp"
#include "tests/support/plain_phone.hpp"

namespace {

// Counts the frames that a display link presents.
struct FrameCount {
  int changed = 0;
  int unchanged = 0;
  uikit::ScreenPicture picture;
  uikit::DisplayLink link{[this] {
    const drawing::RegionHandle damage = picture.update(1);
    ++(cairo_region_is_empty(damage.get()) == 0 ? changed : unchanged);
  }};
};

TEST(BannerFrames, ShowANewPictureInEachFrameOfTheSlides) {
  test::PlainPhone phone({.device = "iphone-8"});
  FrameCount frames;
  frames.picture.update(1);
  phone.present();
  phone.wait(4);
  EXPECT_GE(frames.changed, 8);
  EXPECT_LE(frames.changed, 18);
  // The run-loop iteration of the request presents a frame, although the banner is still above the screen.
  EXPECT_LE(frames.unchanged, 1);
  phone.wait(10);
  EXPECT_GE(frames.changed, 16);
  EXPECT_LE(frames.changed, 36);
  // The additional frames are the start of the departure, and the removal of the banner after it has left the screen.
  EXPECT_LE(frames.unchanged, 3);
}

// Returns whether a new banner is visible before any time of the clock has passed.
bool isVisibleImmediately(foundation::ClockMode clock) {
  test::PlainPhone phone({.clock = clock});
  uikit::ScreenPicture picture;
  picture.update(1);
  phone.present();
  return cairo_region_is_empty(picture.update(1).get()) == 0;
}

TEST(BannerFrames, ShowABannerInTheIterationOfTheRequestOnTheRealClock) {
  EXPECT_TRUE(isVisibleImmediately(foundation::ClockMode::Real));
}

TEST(BannerFrames, BeginAboveTheScreenOnASteppedClock) {
  EXPECT_FALSE(isVisibleImmediately(foundation::ClockMode::Stepped));
}

}  // namespace
