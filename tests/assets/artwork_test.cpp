// Tests of the demonstration artwork: icons are opaque squares, and wallpapers of the screen's size exist in a light
// and a dark version.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

#include "tests/assets/png_image.hpp"

namespace assets_test {
namespace {

constexpr std::array icons = {
    "com.apple.MobileSMS",    "com.apple.mobiletimer",  "com.apple.mobilemail",        "com.apple.mobilecal",
    "com.apple.reminders",    "com.apple.Maps",         "net.whatsapp.WhatsApp",       "net.whatsapp.WhatsAppSMB",
    "com.atebits.Tweetie2",   "com.tinyspeck.chatlyio", "com.hammerandchisel.discord", "com.burbn.instagram",
    "com.facebook.Messenger", "ph.telegra.Telegraph",   "com.apple.Preferences",       "placeholder"};

std::string pathOf(const std::string& name) { return std::string(ARTWORK "/") + name + ".png"; }

double meanBrightness(const PngImage& image) {
  double sum = 0;
  for (int y = 0; y < image.size().height; ++y) {
    for (int x = 0; x < image.size().width; ++x) sum += image.at(x, y).brightness;
  }
  return sum / image.size().width / image.size().height;
}

TEST(Artwork, IconsAreOpaqueInTheCorners) {
  for (const char* icon : icons) {
    SCOPED_TRACE(icon);
    const PngImage image(pathOf(icon));
    ASSERT_EQ(image.size(), (Size{180, 180}));
    for (const int x : {0, 179}) {
      for (const int y : {0, 179}) EXPECT_EQ(image.at(x, y).alpha, 1);
    }
  }
}

TEST(Artwork, LightWallpaperIsBrightAndDarkWallpaperIsDark) {
  const PngImage light(pathOf("wallpaper-light"));
  const PngImage dark(pathOf("wallpaper-dark"));
  ASSERT_EQ(light.size(), (Size{828, 1792}));
  ASSERT_EQ(dark.size(), (Size{828, 1792}));
  EXPECT_GT(meanBrightness(light), 0.6);
  EXPECT_LT(meanBrightness(dark), 0.35);
}

TEST(Artwork, WallpaperFilesAreSmall) {
  for (const char* name : {"wallpaper-light", "wallpaper-dark"}) {
    EXPECT_LT(std::filesystem::file_size(pathOf(name)), 400'000U) << name;
  }
}

}  // namespace
}  // namespace assets_test
