// The demonstration artwork: full squares for icons, and wallpapers of the screen's size that are day and night.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

#include "tests/assets/picture.hpp"

namespace assets_test {
namespace {

constexpr std::array icons = {"com.apple.MobileSMS",    "com.apple.mobiletimer",       "com.apple.mobilemail",
                              "com.apple.mobilecal",    "com.apple.reminders",         "com.apple.Maps",
                              "net.whatsapp.WhatsApp",  "net.whatsapp.WhatsAppSMB",    "com.atebits.Tweetie2",
                              "com.tinyspeck.chatlyio", "com.hammerandchisel.discord", "com.burbn.instagram",
                              "com.facebook.Messenger", "ph.telegra.Telegraph",        "placeholder"};

std::string pathOf(const std::string& name) { return std::string(ARTWORK "/") + name + ".png"; }

double meanBrightness(const Picture& picture) {
  double sum = 0;
  for (int y = 0; y < picture.size().height; ++y) {
    for (int x = 0; x < picture.size().width; ++x) sum += picture.at(x, y).brightness;
  }
  return sum / picture.size().width / picture.size().height;
}

TEST(Artwork, IconsAreOpaqueToTheCorners) {
  for (const char* icon : icons) {
    SCOPED_TRACE(icon);
    const Picture picture(pathOf(icon));
    ASSERT_EQ(picture.size(), (Size{180, 180}));
    for (const int x : {0, 179}) {
      for (const int y : {0, 179}) EXPECT_EQ(picture.at(x, y).alpha, 1);
    }
  }
}

TEST(Artwork, WallpapersAreBrightByDayAndDarkByNight) {
  const Picture light(pathOf("wallpaper-light"));
  const Picture dark(pathOf("wallpaper-dark"));
  ASSERT_EQ(light.size(), (Size{828, 1792}));
  ASSERT_EQ(dark.size(), (Size{828, 1792}));
  EXPECT_GT(meanBrightness(light), 0.6);
  EXPECT_LT(meanBrightness(dark), 0.35);
}

TEST(Artwork, WallpapersAreSmallFiles) {
  for (const char* name : {"wallpaper-light", "wallpaper-dark"}) {
    EXPECT_LT(std::filesystem::file_size(pathOf(name)), 400'000U) << name;
  }
}

}  // namespace
}  // namespace assets_test
