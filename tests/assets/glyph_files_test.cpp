// Tests of the glyphs in the asset bundle: each exists in both colors and at all scales, has the right size, and is
// drawn in its own color only.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "tests/assets/png_image.hpp"

namespace assets_test {
namespace {

constexpr std::array glyphs = {"whatsapp",  "imessages",          "twitter", "slack", "discord",
                               "instagram", "facebook_messenger", "telegram"};
constexpr std::array suffixes = {".png", "@2x.png", "@3x.png"};
constexpr int sideInPoints = 36;
// Pixels above this alpha count as ink. Antialiased edge pixels are below it.
constexpr double minInkAlpha = 0.9;

struct Ink {
  int dark = 0;
  int bright = 0;
};

Ink countInk(const PngImage& image) {
  Ink ink;
  for (int y = 0; y < image.size().height; ++y) {
    for (int x = 0; x < image.size().width; ++x) {
      const Pixel pixel = image.at(x, y);
      if (pixel.alpha <= minInkAlpha) continue;
      ++(pixel.brightness < 0.5 ? ink.dark : ink.bright);
    }
  }
  return ink;
}

std::string pathOf(const std::string& color, const std::string& glyph, const std::string& suffix) {
  return std::string(ASSET_BUNDLE "/glyphs/") + color + "/" + glyph + suffix;
}

bool hasTransparentEdge(const PngImage& image) {
  const auto [width, height] = image.size();
  for (int x = 0; x < width; ++x) {
    if (image.at(x, 0).alpha > 0 || image.at(x, height - 1).alpha > 0) return false;
  }
  for (int y = 0; y < height; ++y) {
    if (image.at(0, y).alpha > 0 || image.at(width - 1, y).alpha > 0) return false;
  }
  return true;
}

template <typename Check>
void forEachGlyphFile(const std::string& color, Check check) {
  for (const char* glyph : glyphs) {
    for (std::size_t index = 0; index < suffixes.size(); ++index) {
      SCOPED_TRACE(pathOf(color, glyph, suffixes[index]));
      const int side = sideInPoints * static_cast<int>(index + 1);
      const PngImage image(pathOf(color, glyph, suffixes[index]));
      ASSERT_EQ(image.size(), (Size{side, side}));
      check(image);
    }
  }
}

TEST(Glyphs, BlackGlyphsHaveNoBrightPixels) {
  forEachGlyphFile("black", [](const PngImage& image) {
    const Ink ink = countInk(image);
    EXPECT_EQ(ink.bright, 0);
    EXPECT_GT(ink.dark, image.size().width * image.size().height / 10);
  });
}

TEST(Glyphs, WhiteGlyphsHaveNoDarkPixels) {
  forEachGlyphFile("white", [](const PngImage& image) {
    const Ink ink = countInk(image);
    EXPECT_EQ(ink.dark, 0);
    EXPECT_GT(ink.bright, image.size().width * image.size().height / 10);
  });
}

TEST(Glyphs, HaveTransparentEdges) {
  for (const char* color : {"black", "white"}) {
    forEachGlyphFile(color, [](const PngImage& image) { EXPECT_TRUE(hasTransparentEdge(image)); });
  }
}

// All glyphs must look equally heavy, so no glyph may cover more than 2.25 times the area of another glyph.
TEST(Glyphs, CoverSimilarAreas) {
  int minInk = sideInPoints * sideInPoints * 9;
  int maxInk = 0;
  for (const char* glyph : glyphs) {
    const int ink = countInk(PngImage(pathOf("black", glyph, "@3x.png"))).dark;
    minInk = std::min(minInk, ink);
    maxInk = std::max(maxInk, ink);
  }
  EXPECT_LT(maxInk, minInk * 9 / 4);
}

}  // namespace
}  // namespace assets_test
