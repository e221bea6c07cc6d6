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
  // The request itself is presented, although the banner is still above the screen.
  EXPECT_LE(frames.unchanged, 1);
  phone.wait(10);
  EXPECT_GE(frames.changed, 16);
  EXPECT_LE(frames.changed, 36);
  // The start of the departure, and the removal of the banner after it has left the screen.
  EXPECT_LE(frames.unchanged, 3);
}

}  // namespace
