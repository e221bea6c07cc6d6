// The glyphs in the asset bundle: there in both colors and all scales, of the right size, and in their own ink.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "tests/assets/picture.hpp"

namespace assets_test {
namespace {

constexpr std::array glyphs = {"whatsapp",  "imessages",          "twitter", "slack", "discord",
                               "instagram", "facebook_messenger", "telegram"};
constexpr std::array suffixes = {".png", "@2x.png", "@3x.png"};
constexpr int sideInPoints = 36;
// The rim stays below this, the ink is above.
constexpr double opaque = 0.9;

struct Ink {
  int dark = 0;
  int bright = 0;
};

Ink countInk(const Picture& picture) {
  Ink ink;
  for (int y = 0; y < picture.size().height; ++y) {
    for (int x = 0; x < picture.size().width; ++x) {
      const Pixel pixel = picture.at(x, y);
      if (pixel.alpha <= opaque) continue;
      ++(pixel.brightness < 0.5 ? ink.dark : ink.bright);
    }
  }
  return ink;
}

std::string pathOf(const std::string& color, const std::string& glyph, const std::string& suffix) {
  return std::string(ASSET_BUNDLE "/glyphs/") + color + "/" + glyph + suffix;
}

bool isClearOfTheEdge(const Picture& picture) {
  const auto [width, height] = picture.size();
  for (int x = 0; x < width; ++x) {
    if (picture.at(x, 0).alpha > 0 || picture.at(x, height - 1).alpha > 0) return false;
  }
  for (int y = 0; y < height; ++y) {
    if (picture.at(0, y).alpha > 0 || picture.at(width - 1, y).alpha > 0) return false;
  }
  return true;
}

template <typename Check>
void forEachGlyphFile(const std::string& color, Check check) {
  for (const char* glyph : glyphs) {
    for (std::size_t index = 0; index < suffixes.size(); ++index) {
      SCOPED_TRACE(pathOf(color, glyph, suffixes[index]));
      const int side = sideInPoints * static_cast<int>(index + 1);
      const Picture picture(pathOf(color, glyph, suffixes[index]));
      ASSERT_EQ(picture.size(), (Size{side, side}));
      check(picture);
    }
  }
}

TEST(Glyphs, BlackOnesHaveNoBrightInk) {
  forEachGlyphFile("black", [](const Picture& picture) {
    const Ink ink = countInk(picture);
    EXPECT_EQ(ink.bright, 0);
    EXPECT_GT(ink.dark, picture.size().width * picture.size().height / 10);
  });
}

TEST(Glyphs, WhiteOnesHaveNoDarkInk) {
  forEachGlyphFile("white", [](const Picture& picture) {
    const Ink ink = countInk(picture);
    EXPECT_EQ(ink.dark, 0);
    EXPECT_GT(ink.bright, picture.size().width * picture.size().height / 10);
  });
}

TEST(Glyphs, AreNotCutOffAtTheEdge) {
  for (const char* color : {"black", "white"}) {
    forEachGlyphFile(color, [](const Picture& picture) { EXPECT_TRUE(isClearOfTheEdge(picture)); });
  }
}

// Of one weight to the eye: no glyph has more than about twice the ink of another.
TEST(Glyphs, AreOfSimilarWeight) {
  int least = sideInPoints * sideInPoints * 9;
  int most = 0;
  for (const char* glyph : glyphs) {
    const int ink = countInk(Picture(pathOf("black", glyph, "@3x.png"))).dark;
    least = std::min(least, ink);
    most = std::max(most, ink);
  }
  EXPECT_LT(most, least * 9 / 4);
}

}  // namespace
}  // namespace assets_test
