#include <cstdlib>

#include "simulator/drawing/text_layout.hpp"
#include "tests/drawing/pictures.hpp"

namespace drawing {
namespace {

constexpr double width = 300;
constexpr double height = 60;
constexpr Rectangle whole{0, 0, width, height};

Paragraph paragraphOf(const std::string& text, int lines = 0) {
  Paragraph paragraph;
  paragraph.runs = {{text, {systemFontFamily, 15}, {}}};
  paragraph.maxLines = lines;
  return paragraph;
}

Canvas drawn(const Paragraph& paragraph, const Rectangle& rectangle = whole, const Color& color = black) {
  Canvas canvas({width, height}, 2);
  TextLayout(paragraph, 2).draw(canvas, rectangle, color);
  return canvas;
}

// The smallest rectangle with everything drawn, in pixels.
PixelRectangle inked(const Canvas& canvas) {
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

int coloredPixels(const Canvas& canvas) {
  int count = 0;
  for (int y = 0; y < canvas.pixelHeight(); ++y) {
    for (int x = 0; x < canvas.pixelWidth(); ++x) {
      const std::uint32_t pixel = canvas.pixel(x, y);
      count += std::abs(redOf(pixel) - blueOf(pixel)) > 40;
    }
  }
  return count;
}

bool samePicture(const Canvas& first, const Canvas& second) { return first.pixelsAsPng() == second.pixelsAsPng(); }

TEST(DrawText, IsTheSameEveryTime) {
  const Paragraph paragraph = paragraphOf("Grüße 😀 日本語 مرحبا");
  EXPECT_TRUE(samePicture(drawn(paragraph), drawn(paragraph)));
}

TEST(DrawText, IsGrayAtItsEdges) {
  EXPECT_EQ(coloredPixels(drawn(paragraphOf("Hello illustrious world"))), 0);
  EXPECT_FALSE(inked(drawn(paragraphOf("Hello"))).isEmpty());
}

TEST(DrawText, EmojiAreColored) { EXPECT_GT(coloredPixels(drawn(paragraphOf("😀"))), 100); }

TEST(DrawText, SequencesOfEmojiAreOnePicture) {
  const auto widthOf = [](const char* text) { return TextLayout(paragraphOf(text), 2).measure(0).width; };
  for (const char* text : {"👨‍👩‍👧‍👦", "🇩🇪", "1️⃣", "👍🏽", "❤️"})
    EXPECT_NEAR(widthOf(text), widthOf("😀"), 1) << text;
}

TEST(DrawText, EmojiKeepTheirSizeAtEveryScale) {
  for (const double scale : {1.0, 2.0, 3.0}) {
    Canvas canvas({width, height}, scale);
    TextLayout(paragraphOf("😀"), scale).draw(canvas, whole, black);
    EXPECT_NEAR(inked(canvas).width / scale, 17, 2) << scale;
  }
}

TEST(DrawText, FollowsItsAlignment) {
  Paragraph paragraph = paragraphOf("Hello");
  const auto position = [&](Alignment alignment, BaseDirection direction) {
    paragraph.alignment = alignment;
    paragraph.direction = direction;
    const PixelRectangle ink = inked(drawn(paragraph));
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

TEST(DrawText, ArabicInAnEnglishInterfaceStaysOnTheLeft) {
  EXPECT_LT(inked(drawn(paragraphOf("مرحبا بالعالم"))).x, 10);
}

TEST(DrawText, ArabicLettersJoin) {
  const auto widthOf = [](const char* text) { return TextLayout(paragraphOf(text), 2).measure(0).width; };
  EXPECT_LT(widthOf("بببب"), widthOf("ب\u200Cب\u200Cب\u200Cب") - 5);
}

TEST(DrawText, IdeographsDifferByLanguage) {
  Paragraph paragraph = paragraphOf("直骨海");
  const auto picture = [&](const char* language) {
    paragraph.language = language;
    return drawn(paragraph).pixelsAsPng();
  };
  EXPECT_NE(picture("ja_JP"), picture("zh_CN"));
  EXPECT_NE(picture("zh_TW"), picture("zh_CN"));
  EXPECT_EQ(picture("zh_Hant_TW"), picture("zh_TW"));
  EXPECT_EQ(picture("en_US"), picture("zh_CN"));
  EXPECT_EQ(picture(""), picture("en_US"));
  EXPECT_EQ(picture("\xFF\xFE not a locale at all, and far longer than any locale is"), picture("en_US"));
}

TEST(DrawText, TheUsersEnvironmentDoesNotMatter) {
  const Paragraph paragraph = paragraphOf("直骨海 Hello");
  const Canvas before = drawn(paragraph);
  setenv("LANGUAGE", "ja", 1);
  setenv("PANGO_LANGUAGE", "ja", 1);
  const Canvas after = drawn(paragraph);
  unsetenv("LANGUAGE");
  unsetenv("PANGO_LANGUAGE");
  EXPECT_TRUE(samePicture(before, after));
}

TEST(DrawText, StandsInTheMiddleOfTheHeight) {
  const Rectangle line{0, 0, width, 18};
  const PixelRectangle above = inked(drawn(paragraphOf("Hello"), line));
  const PixelRectangle centered = inked(drawn(paragraphOf("Hello"), whole));
  EXPECT_EQ(centered.y - above.y, 2 * (60 - 18) / 2);
}

TEST(DrawText, TheLastLineEndsInAnEllipsis) {
  const std::string text = "Several words that do not all fit into one line of this width, whatever is tried";
  Paragraph paragraph = paragraphOf(text, 1);
  const Canvas shortened = drawn(paragraph);
  paragraph.lineBreak = LineBreak::WordWrap;
  const Canvas cut = drawn(paragraph);
  for (int y = 0; y < shortened.pixelHeight(); ++y) {
    for (int x = 0; x < 300; ++x) ASSERT_EQ(shortened.pixel(x, y), cut.pixel(x, y));
  }
  const PixelRectangle ink = inked(shortened);
  EXPECT_GT(ink.x + ink.width, inked(cut).x + inked(cut).width);
  EXPECT_LE(ink.x + ink.width, 2 * width);
}

TEST(DrawText, AnEllipsisTellsOfFurtherParagraphs) {
  EXPECT_TRUE(samePicture(drawn(paragraphOf("First\nSecond", 1)), drawn(paragraphOf("First…", 1))));
  EXPECT_TRUE(samePicture(drawn(paragraphOf("\nSecond", 1)), drawn(paragraphOf("…", 1))));
  EXPECT_TRUE(samePicture(drawn(paragraphOf("First\n\n\nLast", 1)), drawn(paragraphOf("First…", 1))));
  EXPECT_TRUE(samePicture(drawn(paragraphOf("First\n\n", 1)), drawn(paragraphOf("First…", 1))));
  EXPECT_TRUE(samePicture(drawn(paragraphOf("First\n\n\n\nLast", 2)), drawn(paragraphOf("First\n…", 2))));
  EXPECT_TRUE(samePicture(drawn(paragraphOf("First\n", 1)), drawn(paragraphOf("First", 1))));
  Paragraph cut = paragraphOf("First\nSecond", 1);
  cut.lineBreak = LineBreak::WordWrap;
  EXPECT_TRUE(samePicture(drawn(cut), drawn(paragraphOf("First", 1))));
}

// So that a text which is shown with more lines later keeps what it has shown.
TEST(DrawText, HiddenParagraphsTellTheDirectionOfNeutralOnes) {
  const Canvas first = drawn(paragraphOf("1. ->\nمرحبا", 1));
  EXPECT_TRUE(samePicture(drawn(paragraphOf("1. ->\n...\n...\nمرحبا", 1)), first));
  EXPECT_FALSE(samePicture(drawn(paragraphOf("1. ->\n...\n...\nword", 1)), first));
}

TEST(DrawText, ALowRectangleShowsFewerLines) {
  const Paragraph paragraph = paragraphOf("First\nSecond\nThird");
  EXPECT_TRUE(samePicture(drawn(paragraph, {0, 0, width, 20}), drawn(paragraphOf("First…"), {0, 0, width, 20})));
  EXPECT_TRUE(samePicture(drawn(paragraph, {0, 0, width, 5}), drawn(paragraphOf("First…"), {0, 0, width, 5})));
}

TEST(DrawText, RunsHaveTheirOwnColors) {
  Paragraph paragraph = paragraphOf("");
  paragraph.runs = {{"MMM", {systemFontFamily, 15}, red}, {"MMM", {systemFontFamily, 15}, {}}};
  const Canvas canvas = drawn(paragraph, whole, blue);
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

TEST(DrawText, OfARunWithoutOpacityIsInvisible) {
  Paragraph paragraph = paragraphOf("Hello");
  paragraph.runs[0].color = Color{1, 0, 0, 0};
  EXPECT_TRUE(inked(drawn(paragraph)).isEmpty());
}

TEST(DrawText, IntoNothingDrawsNothing) {
  for (const Rectangle& rectangle : {Rectangle{0, 0, 0, 20}, Rectangle{0, 0, 100, 0}, Rectangle{0, 0, -5, -5}}) {
    EXPECT_TRUE(inked(drawn(paragraphOf("Hello"), rectangle)).isEmpty());
  }
  EXPECT_TRUE(inked(drawn(paragraphOf(""))).isEmpty());
  EXPECT_TRUE(inked(drawn({})).isEmpty());
}

TEST(DrawText, OfBadBytesShowsReplacements) {
  EXPECT_TRUE(samePicture(drawn(paragraphOf("a\xFF")), drawn(paragraphOf("a\uFFFD"))));
}

}  // namespace
}  // namespace drawing
