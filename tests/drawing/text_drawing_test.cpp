#include <cstdlib>

#include "simulator/drawing/text_layout.hpp"
#include "tests/drawing/test_images.hpp"

namespace drawing {
namespace {

constexpr double width = 300;
constexpr double height = 60;
constexpr Rectangle canvasBounds{0, 0, width, height};

Paragraph paragraphOf(const std::string& text, int lines = 0) {
  Paragraph paragraph;
  paragraph.runs = {{text, {systemFontFamily, 15}, {}}};
  paragraph.maxLines = lines;
  return paragraph;
}

Canvas drawn(const Paragraph& paragraph, const Rectangle& rectangle = canvasBounds, const Color& color = black) {
  Canvas canvas({width, height}, 2);
  TextLayout(paragraph, 2).draw(canvas, rectangle, color);
  return canvas;
}

// The smallest rectangle that contains all drawn pixels.
PixelRectangle inkBounds(const Canvas& canvas) {
  int left = canvas.pixelWidth(), top = canvas.pixelHeight(), right = 0, bottom = 0;
  for (int y = 0; y < canvas.pixelHeight(); ++y) {
    for (int x = 0; x < canvas.pixelWidth(); ++x) {
      if (canvas.pixel(x, y) == 0) continue;
      left = std::min(left, x);
      right = std::max(right, x + 1);
      top = std::min(top, y);
      bottom = std::max(bottom, y + 1);
    }
  }
  return {left, top, right - left, bottom - top};
}

int countColoredPixels(const Canvas& canvas) {
  int count = 0;
  for (int y = 0; y < canvas.pixelHeight(); ++y) {
    for (int x = 0; x < canvas.pixelWidth(); ++x) {
      const std::uint32_t pixel = canvas.pixel(x, y);
      count += std::abs(redOf(pixel) - blueOf(pixel)) > 40;
    }
  }
  return count;
}

TEST(DrawText, IsDeterministic) {
  const Paragraph paragraph = paragraphOf("Grüße 😀 日本語 مرحبا");
  EXPECT_TRUE(samePixels(drawn(paragraph), drawn(paragraph)));
}

TEST(DrawText, IsAntialiasedInGray) {
  EXPECT_EQ(countColoredPixels(drawn(paragraphOf("Hello illustrious world"))), 0);
  EXPECT_FALSE(inkBounds(drawn(paragraphOf("Hello"))).isEmpty());
}

TEST(DrawText, EmojiAreColored) { EXPECT_GT(countColoredPixels(drawn(paragraphOf("😀"))), 100); }

TEST(DrawText, EmojiSequenceIsOneGlyph) {
  const auto widthOf = [](const char* text) { return TextLayout(paragraphOf(text), 2).measure(0).width; };
  for (const char* text : {"👨‍👩‍👧‍👦", "🇩🇪", "1️⃣", "👍🏽", "❤️"})
    EXPECT_NEAR(widthOf(text), widthOf("😀"), 1) << text;
}

TEST(DrawText, EmojiKeepTheirSizeAtEveryScale) {
  for (const double scale : {1.0, 2.0, 3.0}) {
    Canvas canvas({width, height}, scale);
    TextLayout(paragraphOf("😀"), scale).draw(canvas, canvasBounds, black);
    EXPECT_NEAR(inkBounds(canvas).width / scale, 17, 2) << scale;
  }
}

TEST(DrawText, FollowsItsAlignment) {
  Paragraph paragraph = paragraphOf("Hello");
  const auto position = [&](Alignment alignment, BaseDirection direction) {
    paragraph.alignment = alignment;
    paragraph.direction = direction;
    const PixelRectangle ink = inkBounds(drawn(paragraph));
    return (ink.x + ink.width / 2.0) / (2 * width);
  };
  using enum Alignment;
  using enum BaseDirection;
  EXPECT_LT(position(Left, RightToLeft), 0.15);
  EXPECT_NEAR(position(Center, LeftToRight), 0.5, 0.01);
  EXPECT_GT(position(Right, LeftToRight), 0.85);
  EXPECT_LT(position(Natural, LeftToRight), 0.15);
  EXPECT_GT(position(Natural, RightToLeft), 0.85);
}

TEST(DrawText, ArabicTextIsOnTheLeftInALeftToRightInterface) {
  EXPECT_LT(inkBounds(drawn(paragraphOf("مرحبا بالعالم"))).x, 10);
}

TEST(DrawText, ArabicLettersJoin) {
  const auto widthOf = [](const char* text) { return TextLayout(paragraphOf(text), 2).measure(0).width; };
  EXPECT_LT(widthOf("بببب"), widthOf("ب\u200Cب\u200Cب\u200Cب") - 5);
}

TEST(DrawText, IdeographsDifferByLanguage) {
  Paragraph paragraph = paragraphOf("直骨海");
  const auto pixels = [&](const char* language) {
    paragraph.language = language;
    return drawn(paragraph).pixelsAsPng();
  };
  EXPECT_NE(pixels("ja_JP"), pixels("zh_CN"));
  EXPECT_NE(pixels("zh_TW"), pixels("zh_CN"));
  EXPECT_EQ(pixels("zh_Hant_TW"), pixels("zh_TW"));
  EXPECT_EQ(pixels("en_US"), pixels("zh_CN"));
  EXPECT_EQ(pixels(""), pixels("en_US"));
  EXPECT_EQ(pixels("\xFF\xFE not a locale at all, and far longer than any locale is"), pixels("en_US"));
}

TEST(DrawText, LanguageVariablesHaveNoEffect) {
  const Paragraph paragraph = paragraphOf("直骨海 Hello");
  const Canvas before = drawn(paragraph);
  setenv("LANGUAGE", "ja", 1);
  setenv("PANGO_LANGUAGE", "ja", 1);
  const Canvas after = drawn(paragraph);
  unsetenv("LANGUAGE");
  unsetenv("PANGO_LANGUAGE");
  EXPECT_TRUE(samePixels(before, after));
}

TEST(DrawText, IsCenteredVertically) {
  const Rectangle line{0, 0, width, 18};
  const PixelRectangle above = inkBounds(drawn(paragraphOf("Hello"), line));
  const PixelRectangle centered = inkBounds(drawn(paragraphOf("Hello"), canvasBounds));
  EXPECT_EQ(centered.y - above.y, 2 * (60 - 18) / 2);
}

TEST(DrawText, TruncatedLineEndsInAnEllipsis) {
  const std::string text = "Several words that do not all fit into one line of this width, whatever is tried";
  Paragraph paragraph = paragraphOf(text, 1);
  const Canvas shortened = drawn(paragraph);
  paragraph.lineBreak = LineBreak::WordWrap;
  const Canvas cut = drawn(paragraph);
  for (int y = 0; y < shortened.pixelHeight(); ++y) {
    for (int x = 0; x < 300; ++x) ASSERT_EQ(shortened.pixel(x, y), cut.pixel(x, y));
  }
  const PixelRectangle ink = inkBounds(shortened);
  EXPECT_GT(ink.x + ink.width, inkBounds(cut).x + inkBounds(cut).width);
  EXPECT_LE(ink.x + ink.width, 2 * width);
}

// Returns the widest gap between two drawn columns of pixels, in pixels.
int widestGap(const Canvas& canvas) {
  const PixelRectangle ink = inkBounds(canvas);
  int widest = 0, gap = 0;
  for (int x = ink.x; x < ink.x + ink.width; ++x) {
    bool isEmpty = true;
    for (int y = 0; y < canvas.pixelHeight() && isEmpty; ++y) isEmpty = canvas.pixel(x, y) == 0;
    gap = isEmpty ? gap + 1 : 0;
    widest = std::max(widest, gap);
  }
  return widest;
}

// Returns whether only the lowest quarter of the line is drawn in the columns from `x` on, as for an ellipsis.
bool hasOnlyDots(const Canvas& canvas, int x, int columns) {
  bool isDrawn = false;
  for (int column = x; column < x + columns; ++column) {
    for (int y = 0; y < canvas.pixelHeight(); ++y) {
      if (canvas.pixel(column, y) == 0) continue;
      isDrawn = true;
      if (y < 20 || y > 32) return false;
    }
  }
  return isDrawn;
}

struct MixedLine {
  const char* words;
  bool endsAtTheRight;
};

TEST(DrawText, TruncatedLineOfMixedDirectionEndsAtItsEdgeWithoutAGap) {
  constexpr MixedLine lines[] = {
      {"hello world שלום hello world עולם ", true},
      {"hello مرحبا world بالعالم ", true},
      {"שלום hello world עולם hello world ", false},
      {"مرحبا hello بالعالم world ", false},
  };
  constexpr int ellipsisColumns = 16;
  for (const MixedLine& line : lines) {
    std::string text;
    for (int count = 0; count < 6; ++count) text += line.words;
    // Each width ends the visible text at another position.
    for (int points = 120; points <= 290; points += 17) {
      const double lineWidth = points;
      Paragraph paragraph = paragraphOf(text, 1);
      paragraph.direction = line.endsAtTheRight ? BaseDirection::LeftToRight : BaseDirection::RightToLeft;
      const Canvas canvas = drawn(paragraph, {0, 0, lineWidth, 18});
      const PixelRectangle ink = inkBounds(canvas);
      const int ellipsis = line.endsAtTheRight ? ink.x + ink.width - ellipsisColumns : ink.x;
      EXPECT_TRUE(hasOnlyDots(canvas, ellipsis, ellipsisColumns)) << text << " in " << lineWidth;
      EXPECT_LT(widestGap(canvas), 16) << text << " in " << lineWidth;
      const double startGap = line.endsAtTheRight ? ink.x : 2 * lineWidth - ink.x - ink.width;
      EXPECT_LE(startGap, 4) << text << " in " << lineWidth;
    }
  }
}

TEST(DrawText, EllipsisMarksHiddenParagraphs) {
  EXPECT_TRUE(samePixels(drawn(paragraphOf("First\nSecond", 1)), drawn(paragraphOf("First…", 1))));
  EXPECT_TRUE(samePixels(drawn(paragraphOf("\nSecond", 1)), drawn(paragraphOf("…", 1))));
  EXPECT_TRUE(samePixels(drawn(paragraphOf("First\n\n\nLast", 1)), drawn(paragraphOf("First…", 1))));
  EXPECT_TRUE(samePixels(drawn(paragraphOf("First\n\n", 1)), drawn(paragraphOf("First…", 1))));
  EXPECT_TRUE(samePixels(drawn(paragraphOf("First\n\n\n\nLast", 2)), drawn(paragraphOf("First\n…", 2))));
  EXPECT_TRUE(samePixels(drawn(paragraphOf("First\n", 1)), drawn(paragraphOf("First", 1))));
  Paragraph cut = paragraphOf("First\nSecond", 1);
  cut.lineBreak = LineBreak::WordWrap;
  EXPECT_TRUE(samePixels(drawn(cut), drawn(paragraphOf("First", 1))));
}

// The direction must not change when more lines of the same text are shown later.
TEST(DrawText, HiddenParagraphsDetermineTheDirectionOfNeutralOnes) {
  const Canvas first = drawn(paragraphOf("1. ->\nمرحبا", 1));
  EXPECT_TRUE(samePixels(drawn(paragraphOf("1. ->\n...\n...\nمرحبا", 1)), first));
  EXPECT_FALSE(samePixels(drawn(paragraphOf("1. ->\n...\n...\nword", 1)), first));
}

TEST(DrawText, LowRectangleShowsFewerLines) {
  const Paragraph paragraph = paragraphOf("First\nSecond\nThird");
  EXPECT_TRUE(samePixels(drawn(paragraph, {0, 0, width, 20}), drawn(paragraphOf("First…"), {0, 0, width, 20})));
  EXPECT_TRUE(samePixels(drawn(paragraph, {0, 0, width, 5}), drawn(paragraphOf("First…"), {0, 0, width, 5})));
}

TEST(DrawText, RunsHaveTheirOwnColors) {
  Paragraph paragraph = paragraphOf("");
  paragraph.runs = {{"MMM", {systemFontFamily, 15}, red}, {"MMM", {systemFontFamily, 15}, {}}};
  const Canvas canvas = drawn(paragraph, canvasBounds, blue);
  int reds = 0, blues = 0;
  for (int y = 0; y < canvas.pixelHeight(); ++y) {
    for (int x = 0; x < canvas.pixelWidth(); ++x) {
      reds += canvas.pixel(x, y) == 0xFFFF0000;
      blues += canvas.pixel(x, y) == 0xFF0000FF;
    }
  }
  EXPECT_GT(reds, 50);
  EXPECT_GT(blues, 50);
}

TEST(DrawText, TransparentRunIsInvisible) {
  Paragraph paragraph = paragraphOf("Hello");
  paragraph.runs[0].color = Color{1, 0, 0, 0};
  EXPECT_TRUE(inkBounds(drawn(paragraph)).isEmpty());
}

TEST(DrawText, EmptyRectangleOrTextDrawsNothing) {
  for (const Rectangle& rectangle : {Rectangle{0, 0, 0, 20}, Rectangle{0, 0, 100, 0}, Rectangle{0, 0, -5, -5}}) {
    EXPECT_TRUE(inkBounds(drawn(paragraphOf("Hello"), rectangle)).isEmpty());
  }
  EXPECT_TRUE(inkBounds(drawn(paragraphOf(""))).isEmpty());
  EXPECT_TRUE(inkBounds(drawn({})).isEmpty());
}

TEST(DrawText, InvalidBytesAreDrawnAsReplacementCharacters) {
  EXPECT_TRUE(samePixels(drawn(paragraphOf("a\xFF")), drawn(paragraphOf("a\uFFFD"))));
}

}  // namespace
}  // namespace drawing
